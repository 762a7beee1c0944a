#include "CFConvert.h"

namespace ravlin::CFConvert {

CFRef<CFStringRef> string(const QString& text)
{
    return CFRef<CFStringRef>(text.toCFString());
}

QString toQString(CFStringRef text)
{
    return text ? QString::fromCFString(text) : QString();
}

PlistValue toPlist(CFTypeRef value)
{
    if (!value)
        return {};
    const CFTypeID type = CFGetTypeID(value);
    if (type == CFBooleanGetTypeID())
        return bool(CFBooleanGetValue(CFBooleanRef(value)));
    if (type == CFNumberGetTypeID()) {
        auto number = CFNumberRef(value);
        if (CFNumberIsFloatType(number)) {
            double d = 0;
            CFNumberGetValue(number, kCFNumberDoubleType, &d);
            return d;
        }
        long long i = 0;
        CFNumberGetValue(number, kCFNumberLongLongType, &i);
        return std::int64_t(i);
    }
    if (type == CFStringGetTypeID())
        return toQString(CFStringRef(value));
    if (type == CFDataGetTypeID()) {
        auto data = CFDataRef(value);
        return QByteArray(reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
                          CFDataGetLength(data));
    }
    if (type == CFDateGetTypeID()) // both count seconds from the start of 2001
        return PlistDate{CFDateGetAbsoluteTime(CFDateRef(value))};
    if (type == CFArrayGetTypeID()) {
        auto array = CFArrayRef(value);
        PlistArray out;
        for (CFIndex i = 0, n = CFArrayGetCount(array); i < n; ++i)
            out.push_back(toPlist(CFArrayGetValueAtIndex(array, i)));
        return out;
    }
    if (type == CFDictionaryGetTypeID()) {
        auto dict = CFDictionaryRef(value);
        const CFIndex n = CFDictionaryGetCount(dict);
        const auto count = static_cast<size_t>(n);
        std::vector<const void*> keys(count), values(count);
        CFDictionaryGetKeysAndValues(dict, keys.data(), values.data());
        PlistDict out;
        for (CFIndex i = 0; i < n; ++i) {
            if (CFGetTypeID(keys[size_t(i)]) == CFStringGetTypeID())
                out.insert(toQString(CFStringRef(keys[size_t(i)])), toPlist(values[size_t(i)]));
        }
        return out;
    }
    return {};
}

CFRef<CFPropertyListRef> fromPlist(const PlistValue& value)
{
    switch (value.type()) {
    case PlistValue::Type::Null:
        return {};
    case PlistValue::Type::Bool:
        return CFRef<CFPropertyListRef>::retain(*value.asBool() ? kCFBooleanTrue : kCFBooleanFalse);
    case PlistValue::Type::Integer: {
        long long i = *value.asInteger();
        return CFRef<CFPropertyListRef>(CFNumberCreate(nullptr, kCFNumberLongLongType, &i));
    }
    case PlistValue::Type::Real: {
        double d = *value.asDouble();
        return CFRef<CFPropertyListRef>(CFNumberCreate(nullptr, kCFNumberDoubleType, &d));
    }
    case PlistValue::Type::String:
        return CFRef<CFPropertyListRef>(value.asString()->toCFString());
    case PlistValue::Type::Date:
        return CFRef<CFPropertyListRef>(CFDateCreate(nullptr, value.asPlistDate()->seconds));
    case PlistValue::Type::Unsigned: {
        // Only Ravlin's own keys pass through here (the preferences daemon keeps the rest as
        // they are), and none of them holds an integer this large.
        double d = double(*value.asUnsigned());
        return CFRef<CFPropertyListRef>(CFNumberCreate(nullptr, kCFNumberDoubleType, &d));
    }
    case PlistValue::Type::Uid:
        return {};
    case PlistValue::Type::Data: {
        const QByteArray data = *value.asData();
        return CFRef<CFPropertyListRef>(
            CFDataCreate(nullptr, reinterpret_cast<const UInt8*>(data.constData()), data.size()));
    }
    case PlistValue::Type::Array: {
        CFMutableArrayRef array = CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks);
        for (const PlistValue& element : *value.asArray()) {
            if (auto child = fromPlist(element))
                CFArrayAppendValue(array, child.get());
        }
        return CFRef<CFPropertyListRef>(array);
    }
    case PlistValue::Type::Dict: {
        CFMutableDictionaryRef dict = CFDictionaryCreateMutable(
            nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks);
        const PlistDict& d = *value.asDict();
        for (auto it = d.cbegin(); it != d.cend(); ++it) {
            if (auto child = fromPlist(it.value()))
                CFDictionarySetValue(dict, string(it.key()).get(), child.get());
        }
        return CFRef<CFPropertyListRef>(dict);
    }
    }
    return {};
}

} // namespace ravlin::CFConvert
