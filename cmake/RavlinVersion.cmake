# The version, in one place: project(VERSION) gives the marketing version; a release may add a
# pre-release label ("beta.1"). CFBundleVersion is a whole number that grows with every release:
# the release workflow passes the number of commits on the tagged history; other builds take it
# from the checkout's history when there is one.
set(RAVLIN_VERSION_LABEL "" CACHE STRING "Pre-release label of the version (beta.1), empty for a release")
set(RAVLIN_BUILD_NUMBER "" CACHE STRING "CFBundleVersion: a whole number that grows with every release")

set(RAVLIN_DISPLAY_VERSION "${PROJECT_VERSION}")
if(RAVLIN_VERSION_LABEL)
  if(NOT RAVLIN_VERSION_LABEL MATCHES "^[a-z]+\\.[0-9]+$")
    message(FATAL_ERROR "RAVLIN_VERSION_LABEL is a word and a number (beta.1), not ${RAVLIN_VERSION_LABEL}")
  endif()
  set(RAVLIN_DISPLAY_VERSION "${PROJECT_VERSION}-${RAVLIN_VERSION_LABEL}")
endif()

set(_ravlin_build "${RAVLIN_BUILD_NUMBER}")
if(NOT _ravlin_build)
  execute_process(COMMAND git rev-list --count HEAD
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
    OUTPUT_VARIABLE _ravlin_build RESULT_VARIABLE _ravlin_git
    OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(NOT _ravlin_git EQUAL 0 OR NOT _ravlin_build MATCHES "^[0-9]+$")
    set(_ravlin_build 1)
  endif()
endif()
if(NOT _ravlin_build MATCHES "^[1-9][0-9]*$")
  message(FATAL_ERROR "RAVLIN_BUILD_NUMBER is a positive whole number, not ${_ravlin_build}")
endif()
set(RAVLIN_BUNDLE_VERSION "${_ravlin_build}")

# Where Ravlin's source and releases live, and the update feed Sparkle reads. The release
# workflow publishes the feed there and signs every update with the private half of
# RAVLIN_SPARKLE_PUBLIC_KEY (a repository variable of the CI gives it to release builds).
set(RAVLIN_REPOSITORY "vexa/ravlin" CACHE STRING "owner/name of the source repository")
set(RAVLIN_HOMEPAGE "https://github.com/${RAVLIN_REPOSITORY}")
set(RAVLIN_UPDATE_FEED "https://raw.githubusercontent.com/${RAVLIN_REPOSITORY}/main/updates/appcast.xml"
  CACHE STRING "The Sparkle update feed (SUFeedURL)")
set(RAVLIN_SPARKLE_PUBLIC_KEY "" CACHE STRING
  "SUPublicEDKey: base64 of the 32-byte Ed25519 public key that signs updates")
if(RAVLIN_SPARKLE_PUBLIC_KEY AND NOT RAVLIN_SPARKLE_PUBLIC_KEY MATCHES "^[A-Za-z0-9+/]{43}=$")
  message(FATAL_ERROR "RAVLIN_SPARKLE_PUBLIC_KEY is the base64 of 32 bytes (44 characters ending in =)")
endif()

# The bundle's Info.plist, made from its template by every build (the Linux build tests it).
set(RAVLIN_INFO_PLIST "${CMAKE_BINARY_DIR}/Info.plist")
configure_file("${PROJECT_SOURCE_DIR}/resources/Info.plist.in" "${RAVLIN_INFO_PLIST}" @ONLY)
