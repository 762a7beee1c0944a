#pragma once

#include "platform/LoginItems.h"

namespace ravlin {

// A login-item service whose status and failures a script sets; it records calls.
class SimLoginItems final : public LoginItems {
public:
    LoginItemStatus status() override { return m_status; }
    std::optional<QString> registerItem() override;
    std::optional<QString> unregisterItem() override;

    void setStatus(LoginItemStatus status) { m_status = status; }
    // Every later register or unregister fails with this description (empty: they succeed).
    void setFailure(QString message) { m_failure = std::move(message); }

    int registerCalls() const { return m_registerCalls; }
    int unregisterCalls() const { return m_unregisterCalls; }

private:
    LoginItemStatus m_status = LoginItemStatus::NotRegistered;
    QString m_failure;
    int m_registerCalls = 0;
    int m_unregisterCalls = 0;
};

} // namespace ravlin
