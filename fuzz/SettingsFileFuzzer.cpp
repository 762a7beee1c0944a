// Feeds arbitrary bytes to the settings-file reader and the typed reads behind it.
#include "foundation/DefaultsStore.h"
#include "platform/linux/PlistCodec.h"

#include <cstddef>
#include <cstdint>

using namespace ravlin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto root = PlistCodec::parse(bytes);
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
