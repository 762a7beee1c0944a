// Feeds arbitrary bytes to the settings-file reader and the typed reads behind it.
#include "foundation/DefaultsStore.h"
#include "platform/linux/BinaryPlistReader.h"
#include "platform/linux/PlistCodec.h"
#include "platform/linux/XmlPlistScan.h"

#include <cstddef>
#include <cstdint>

using namespace ravlin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    QString error;
    QStringList warnings;
    const auto root = PlistCodec::parse(bytes, &error, &warnings);
    // The scan of the text must see every level libplist builds: the check after parsing is only
    // a safety net, and a tree it catches is never freed.
    if (!root && error == PlistCodec::nestingError() && !BinaryPlistReader::isBinary(bytes) &&
        !XmlPlistScan(bytes, PlistCodec::maxNesting).tooDeep())
        __builtin_trap();
    if (!root || !root->isDict())
        return 0;
    InMemoryDefaultsStore store;
    const PlistDict& dict = *root->asDict();
    for (auto it = dict.cbegin(); it != dict.cend(); ++it) {
        store.set(it.key(), it.value());
        (void)store.boolForKey(it.key());
        (void)store.integerForKey(it.key());
        (void)store.stringForKey(it.key());
        (void)store.stringArrayForKey(it.key());
    }
    // What was read must write back and read again.
    const QByteArray xml = PlistCodec::toXml(*root);
    (void)PlistCodec::parse(xml);
    return 0;
}
