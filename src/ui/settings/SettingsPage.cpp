#include "SettingsPage.h"

#include "SettingsStyle.h"

namespace ravlin {

SettingsPage::SettingsPage(QWidget* parent)
    : SettingsColumn(QMargins(SettingsStyle::pageMargin, 18, SettingsStyle::pageMargin,
                              SettingsStyle::pageMargin),
                     parent)
{}

} // namespace ravlin
