# One interface target carries the settings every Ravlin target shares.
add_library(ravlin_common INTERFACE)
target_compile_features(ravlin_common INTERFACE cxx_std_20)
target_compile_definitions(ravlin_common INTERFACE
  QT_NO_CAST_FROM_ASCII
  QT_NO_CONTEXTLESS_CONNECT
  QT_NO_KEYWORDS
  RAVLIN_VERSION="${RAVLIN_DISPLAY_VERSION}")
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(ravlin_common INTERFACE -Wall -Wextra -Wpedantic -Wno-missing-field-initializers)
endif()

# Sanitizer builds (the asan preset) pass RAVLIN_SANITIZE=ON.
option(RAVLIN_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
if(RAVLIN_SANITIZE)
  target_compile_options(ravlin_common INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_link_options(ravlin_common INTERFACE -fsanitize=address,undefined)
endif()
