#pragma once

#include <QImage>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ravlin {

enum class ActivationPolicy : int { Regular = 0, Accessory = 1, Prohibited = 2 };

// One running application as the workspace lists it.
struct RunningApplication {
    std::optional<QString> bundleIdentifier;
    std::int32_t pid = 0;
    std::optional<QString> localizedName;
    ActivationPolicy activationPolicy = ActivationPolicy::Regular;
};

enum class WorkspaceNotification { DidLaunchApplication, DidTerminateApplication, DidWake };

// The shared workspace: running applications, their launch and termination,
// and opening URLs and applications.
class Workspace {
public:
    using Observer = std::function<void(const RunningApplication&)>;
    // An observer stays registered while its token lives.
    using ObserverToken = std::shared_ptr<void>;

    virtual ~Workspace() = default;

    virtual std::vector<RunningApplication> runningApplications() = 0;
    virtual std::optional<RunningApplication> runningApplication(std::int32_t pid) = 0;
    virtual std::int32_t currentProcessIdentifier() = 0;

    virtual bool openURL(const QString& url) = 0;
    virtual std::optional<QString> urlForApplication(const QString& bundleIdentifier) = 0;
    virtual bool openApplication(const QString& applicationURL, bool activates) = 0;
    virtual bool activate(std::int32_t pid) = 0;
    virtual void terminateSelf() = 0;
    // Asks another application to quit, as its own Quit command would (it may ask to save, or
    // refuse); false when the request could not be made.
    virtual bool terminate(std::int32_t pid)
    {
        Q_UNUSED(pid);
        return false;
    }
    // The running application's icon, at the platform's backing scale; null when it has none.
    virtual QImage applicationIcon(std::int32_t pid)
    {
        Q_UNUSED(pid);
        return {};
    }

    [[nodiscard]] ObserverToken addObserver(WorkspaceNotification which, Observer observer);

protected:
    // Backends call this when the platform reports a launch or a termination.
    void notify(WorkspaceNotification which, const RunningApplication& application);

private:
    struct Entry {
        WorkspaceNotification which;
        std::weak_ptr<Observer> observer;
    };
    std::vector<Entry> m_observers;
};

} // namespace ravlin
