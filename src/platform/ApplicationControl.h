#pragma once

namespace ravlin {

// The application object of the platform: its activation policy and its end.
class ApplicationControl {
public:
    enum class Policy { Regular = 0, Accessory = 1 };

    virtual ~ApplicationControl() = default;
    virtual Policy activationPolicy() const = 0;
    virtual void setActivationPolicy(Policy policy) = 0;
    // Makes this application the active one, so that its window comes in front of the one
    // the user works in (an agent is not active by itself). Nothing to do where windows
    // come to the front on their own.
    virtual void activate() {}
    // Asks the application to terminate, as the Quit command does.
    virtual void terminate() = 0;
    // Ends the process at once with this status.
    virtual void exit(int status) = 0;
};

} // namespace ravlin
