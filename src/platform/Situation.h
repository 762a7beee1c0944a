#pragma once

#include <QByteArray>
#include <QString>
#include <QTimeZone>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ravlin {

// What changed about the Mac's surroundings.
enum class SituationChange {
    PowerSource,          // the Mac went on battery or on external power (read the probe)
    WifiNetwork,          // the network configuration changed (read the network's name)
    FrontmostApplication, // another application came to the front
    FocusMode,            // the system's Focus records changed
    Clock,                // the clock was set, or the time zone changed
};

// The system's own records of its Focus modes, as it stores them: the assertions (which mode
// is on now) and the modes' configurations (their names), each a JSON document.
struct FocusRecords {
    QByteArray assertions;
    QByteArray modeConfigurations;
};

// The parts of the Mac's situation that no other service reports, each change told as an
// event, so that nothing has to look again and again. It only translates: what a record
// means is for the core to decide.
class Situation {
public:
    // An observer stays registered while its token lives.
    using ObserverToken = std::shared_ptr<void>;
    using Observer = std::function<void(SituationChange)>;

    virtual ~Situation() = default;

    // The name of the Wi-Fi network the Mac is joined to; absent when it is joined to none,
    // or when the system keeps the name to itself (it asks for location access first).
    virtual std::optional<QString> wifiNetworkName() = 0;
    // The bundle identifier of the application in front, if it has one.
    virtual std::optional<QString> frontmostApplication() = 0;
    // Absent when the records cannot be read (they are private to the system and its
    // settings; reading them needs the user's leave).
    virtual std::optional<FocusRecords> focusRecords() = 0;
    // The time zone the user's clock shows.
    virtual QTimeZone timeZone() = 0;

    [[nodiscard]] ObserverToken addObserver(Observer observer);

protected:
    // Backends call this when the platform reports a change.
    void notify(SituationChange change);

private:
    std::vector<std::weak_ptr<Observer>> m_observers;
};

} // namespace ravlin
