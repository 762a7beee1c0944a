#pragma once

#include "platform/Situation.h"

namespace ravlin {

// The simulated Mac's surroundings, which scripts set; every change is announced as the
// system announces it. It starts on no Wi-Fi network, with no application in front, no Focus
// on and the clock in UTC.
class SimSituation final : public Situation {
public:
    std::optional<QString> wifiNetworkName() override;
    std::optional<QString> frontmostApplication() override { return m_frontmost; }
    std::optional<FocusRecords> focusRecords() override;
    QTimeZone timeZone() override { return m_zone; }

    void setWifiNetwork(const std::optional<QString>& name);
    // As on macOS, the network's name is told only to an application the person lets use the
    // location; without a gate the name is told to everyone.
    void setWifiNameGate(std::function<bool()> allowed) { m_wifiNameAllowed = std::move(allowed); }
    // The network the Mac is joined to, whoever may know its name.
    std::optional<QString> joinedNetwork() const { return m_wifi; }
    void setFrontmost(const std::optional<QString>& bundleId);
    // The Focus mode on now (absent: none), stored as the system stores it.
    void setFocus(const std::optional<QString>& name);
    // The records cannot be read from now on (as without the user's leave).
    void setFocusUnreadable();
    void setTimeZone(const QTimeZone& zone);
    // The Mac went on battery or on power: the probe tells which.
    void powerSourceChanged() { notify(SituationChange::PowerSource); }

    std::optional<QString> focus() const { return m_focus; }
    bool focusReadable() const { return m_focusReadable; }

private:
    std::optional<QString> m_wifi;
    std::function<bool()> m_wifiNameAllowed;
    std::optional<QString> m_frontmost;
    std::optional<QString> m_focus;
    bool m_focusReadable = true;
    QTimeZone m_zone = QTimeZone::utc();
};

} // namespace ravlin
