// Feeds arbitrary bytes to the reader of the reverse-geocoding reply.
#include "platform/linux/NominatimGeocoder.h"

#include <QLoggingCategory>

#include <cstddef>
#include <cstdint>

using namespace ravlin;

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    QLoggingCategory::setFilterRules(QStringLiteral("de.vexa.Ravlin.*=false"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    (void)NominatimGeocoder::parseReverse(bytes);
    return 0;
}
