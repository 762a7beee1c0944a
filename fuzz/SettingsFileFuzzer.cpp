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
    // What was read is written back exactly: read again and written once more, the bytes are
    // the same (compared as bytes, so that a real that is not a number equals itself).
    const QByteArray written = PlistCodec::encode(*root);
    const std::optional<PlistValue> again = PlistCodec::parse(written);
    if (!again || PlistCodec::encode(*again) != written)
        __builtin_trap();
    return 0;
}
