#pragma once

#include "platform/Workspace.h"

#include <memory>

namespace ravlin {

// NSWorkspace: running applications, their launch and termination, the machine's wake,
// opening URLs and applications. Objective-C stays in the .mm file.
class MacWorkspace final : public Workspace {
public:
    MacWorkspace();
    ~MacWorkspace() override;

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

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

} // namespace ravlin
