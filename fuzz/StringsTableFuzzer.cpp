// Feeds arbitrary bytes to the .strings parser and formats every value it finds.
#include "foundation/PrintfFormat.h"
#include "foundation/StringsTable.h"

#include <cstddef>
#include <cstdint>

using namespace ravlin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto table = StringsTable::parse(bytes);
    if (!table)
        return 0;
    for (const auto& entry : table->entries()) {
        (void)formatPrintf(entry.value, {QStringLiteral("x"), 42, 1.5});
        (void)printfPlaceholders(entry.value);
    }
    return 0;
}
