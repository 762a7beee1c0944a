// Feeds arbitrary bytes to the layout-file reader, and takes every layout it accepts through
// the settings file and back: what was imported must come back whole (a name cut at a NUL,
// a key lost, an item moved would all stop the fuzzer).
#include "core/bar/LayoutName.h"
#include "core/bar/SavedLayout.h"
#include "platform/linux/PlistCodec.h"

#include <QLoggingCategory>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace ravlin;

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    QLoggingCategory::setFilterRules(QStringLiteral("de.vexa.Ravlin.*=false"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const std::optional<SavedLayout> layout = SavedLayout::fromJson(bytes);
    if (!layout)
        return 0;
    // A name that was let in is one the rest of the program may trust.
    if (LayoutName::validated(layout->name) != layout->name)
        std::abort();
    // Kept in the library (the settings file), as the import does.
    const PlistValue stored = PlistDict{{QStringLiteral("ravlin.layouts"),
                                         PlistDict{{layout->name, layout->toPlist()}}}};
    const std::optional<PlistValue> read = PlistCodec::parse(PlistCodec::encode(stored));
    if (!read)
        std::abort();
    const PlistDict* library = (*read)[QStringLiteral("ravlin.layouts")].asDict();
    if (!library || library->size() != 1 || library->firstKey() != layout->name)
        std::abort();
    std::optional<SavedLayout> back = SavedLayout::fromPlist(library->first());
    if (!back || *back != *layout)
        std::abort();
    // And exported again: the file reads back as the same layout.
    if (SavedLayout::fromJson(layout->toJson()) != layout)
        std::abort();
    return 0;
}
