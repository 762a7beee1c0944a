#pragma once

#include "CFRef.h"
#include "foundation/PlistValue.h"

namespace ravlin::CFConvert {

// Property-list values between Core Foundation and PlistValue.
PlistValue toPlist(CFTypeRef value);
CFRef<CFPropertyListRef> fromPlist(const PlistValue& value);
CFRef<CFStringRef> string(const QString& text);
QString toQString(CFStringRef text);

} // namespace ravlin::CFConvert
