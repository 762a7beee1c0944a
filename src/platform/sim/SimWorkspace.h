#pragma once

#include "platform/Workspace.h"

namespace ravlin {

class SimDesktop;
struct SimApp;

// The workspace of the simulated desktop: its applications, with launch and
// termination notifications when a script starts or ends one.
class SimWorkspace final : public Workspace {
public:
    explicit SimWorkspace(SimDesktop& desktop);

    std::vector<RunningApplication> runningApplications() override;
    std::optional<RunningApplication> runningApplication(std::int32_t pid) override;
    std::int32_t currentProcessIdentifier() override;
    bool openURL(const QString& url) override;
    std::optional<QString> urlForApplication(const QString& bundleIdentifier) override;
    bool openApplication(const QString& applicationURL, bool activates) override;
    bool activate(std::int32_t pid) override;
    void terminateSelf() override;
    bool terminate(std::int32_t pid) override;
    QImage applicationIcon(std::int32_t pid) override;
    // The Mac wakes from sleep.
    void wake() { notify(WorkspaceNotification::DidWake, RunningApplication{}); }

    static RunningApplication describe(const SimApp& app);

private:
    SimDesktop& m_desktop;
};

} // namespace ravlin
