#include "Platform.h"

#include "LoginItems.h"
#include "core/foundation/DefaultsStore.h"

namespace ravlin {

Platform::Platform() = default;
Platform::~Platform() = default;
Platform::Platform(Platform&&) noexcept = default;
Platform& Platform::operator=(Platform&&) noexcept = default;

} // namespace ravlin
