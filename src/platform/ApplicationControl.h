#pragma once

namespace ravlin {

// The application object of the platform: its activation policy and its end.
class ApplicationControl {
public:
    enum class Policy { Regular = 0, Accessory = 1 };

    virtual ~ApplicationControl() = default;
    virtual Policy activationPolicy() const = 0;
    virtual void setActivationPolicy(Policy policy) = 0;
    // Asks the application to terminate, as the Quit command does.
    virtual void terminate() = 0;
    // Ends the process at once with this status.
    virtual void exit(int status) = 0;
};

} // namespace ravlin
