#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ravlin {

struct PlatformError {
    QString domain;
    int code = 0;
    QString description;
};

// An assessment-mode assertion taken out with the system's menu-bar client framework.
class AssessmentAssertion {
public:
    virtual ~AssessmentAssertion() = default;
    virtual void invalidate() = 0;
};

// The system's menu-bar assessment mode: while an assertion is active, only the
// status items of the allowed owners and system-item numbers stay in the menu bar.
class AssessmentMode {
public:
    virtual ~AssessmentMode() = default;

    // The framework was loaded and its two classes answer the selectors used.
    virtual bool isAvailable() const = 0;

    // Creates a configuration and an assertion and asks to activate it. Returns
    // nothing when the configuration cannot be made. The completion comes later,
    // on the main thread, with the framework's error if it refused.
    virtual std::shared_ptr<AssessmentAssertion>
    activate(const std::vector<int>& allowedSystemItems, const QStringList& allowedBundleIDs,
             std::function<void(std::optional<PlatformError>)> completion) = 0;
};

} // namespace ravlin
