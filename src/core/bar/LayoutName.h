#pragma once

#include <QString>

#include <optional>

namespace ravlin {

// The name a layout is kept under: checked once, where it enters (typed in the settings or
// read from an imported file), so that everything after may trust it. A name is refused
// rather than changed: the user sees why and keeps what they typed.
class LayoutName {
public:
    // Characters as a person counts them (an emoji with its modifiers is one).
    static constexpr int maxCharacters = 60;
    // However few characters they make, names longer than this in UTF-16 units are refused
    // (a character can be stacked with marks without end).
    static constexpr int maxUnits = 240;

    // The name as it is kept (blanks at either end removed), or absent with the reason.
    static std::optional<QString> validated(const QString& typed, QString* why = nullptr);
    // A free name for a layout called `name` when that one is taken: "Work 2", "Work 3", …
    template <typename Taken>
    static QString unused(const QString& name, Taken isTaken)
    {
        for (int n = 2;; ++n) {
            const QString candidate = withNumber(name, n);
            if (!isTaken(candidate))
                return candidate;
        }
    }
    // For log lines: in quotes, with every character that could end, split or colour the
    // line written as an escape, so the line shows what the name holds.
    static QString quoted(const QString& name);

private:
    static QString withNumber(const QString& name, int n);
};

} // namespace ravlin
