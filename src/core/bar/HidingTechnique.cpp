#include "HidingTechnique.h"

#include "EngineHiding.h"
#include "SeparatorHiding.h"
#include "platform/StatusBar.h"

namespace ravlin {

std::unique_ptr<HidingTechnique> HidingTechnique::make(Kind kind, HidingContext& context)
{
    switch (kind) {
    case Kind::HideEngine:
        return std::make_unique<EngineHiding>(context);
    case Kind::ShortSeparators:
        return std::make_unique<ShortSeparators>(context);
    case Kind::LongSeparators:
        break;
    }
    return std::make_unique<LongSeparators>(context);
}

} // namespace ravlin
