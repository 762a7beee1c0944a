#pragma once

#include "platform/AssessmentMode.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace ravlin {

// Hides other applications' status items through the system's assessment mode:
// restrict() takes out an assertion that allows only the given owners and system
// items, release() drops it. At most one assertion is ever held.
class MenuBarHideEngine : public QObject {
    Q_OBJECT
public:
    struct SystemItem {
        int id;
        QString labelKey;
        QString symbol;
    };
    enum class State { Unavailable, Idle, Pending, Restricted };
    using Completion = std::function<void(std::optional<PlatformError>)>;

    static inline const QString errorDomain = QStringLiteral("Ravlin.HideEngine");

    static const std::vector<SystemItem>& knownSystemItems();
    static const QStringList& mandatoryBundleIDs();
    static const QStringList& spotlightBundleIDs();
    static QStringList alwaysAllowedBundleIDs();
    static std::vector<int> allowedSystemItems(); // 0 … 63
    static std::vector<int> allowedSystemItems(const std::set<std::int64_t>& hiding);

    explicit MenuBarHideEngine(AssessmentMode* assessmentMode);
    ~MenuBarHideEngine() override;

    bool isAvailable() const;
    State state() const;
    QString stateName() const;

    void restrict(const QStringList& keepVisibleBundleIDs,
                  std::optional<std::vector<int>> allowedSystemItems, Completion completion);
    void release();

    // What the last restrict asked for, and the last error reported.
    QStringList lastAllowedBundleIDs() const { return m_lastBundleIDs; }
    std::vector<int> lastAllowedSystemItems() const { return m_lastSystemItems; }
    std::optional<PlatformError> lastError() const { return m_lastError; }

private:
    void finish(const std::shared_ptr<AssessmentAssertion>& assertion,
                std::optional<PlatformError> error, const Completion& completion);
    void report(std::optional<PlatformError> error, const Completion& completion);

    AssessmentMode* m_mode;
    std::shared_ptr<AssessmentAssertion> m_active;
    std::map<int, std::shared_ptr<AssessmentAssertion>> m_waiting; // activations under way
    int m_nextTicket = 0;
    bool m_released = false;
    QStringList m_lastBundleIDs;
    std::vector<int> m_lastSystemItems;
    std::optional<PlatformError> m_lastError;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace ravlin
