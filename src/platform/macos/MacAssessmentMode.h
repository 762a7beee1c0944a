#pragma once

#include "platform/AssessmentMode.h"

namespace ravlin {

// The private menu-bar client framework, loaded at run time. Its classes are
// looked up by name and used only when they answer the selectors we send.
class MacAssessmentMode final : public AssessmentMode {
public:
    MacAssessmentMode();
    bool isAvailable() const override;
    std::shared_ptr<AssessmentAssertion>
    activate(const std::vector<int>& allowedSystemItems, const QStringList& allowedBundleIDs,
             std::function<void(std::optional<PlatformError>)> completion) override;

private:
    void* m_assertionClass = nullptr; // Class, kept as void* so the header stays plain C++
    void* m_configClass = nullptr;
};

} // namespace ravlin
