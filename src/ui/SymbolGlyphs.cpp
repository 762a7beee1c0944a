// The symbol names the program uses, each with its glyph in the Material Design icon font.
#include "SymbolGlyphs.h"

namespace ravlin {

// Symbol name → Material Icons code point (the icon's name in the comment).
const QHash<QString, char32_t>& symbolGlyphs()
{
    static const QHash<QString, char32_t> map = {
        // the status items and arrange mode
        {QStringLiteral("chevron.left"), 0xe5cb},         // chevron_left
        {QStringLiteral("chevron.right"), 0xe5cc},        // chevron_right
        {QStringLiteral("arrow.left.and.right"), 0xe8d4}, // swap_horiz
        {QStringLiteral("eye"), 0xe8f4},                  // visibility
        {QStringLiteral("eye.slash"), 0xe8f5},            // visibility_off
        {QStringLiteral("pin.fill"), 0xf10d},             // push_pin
        // system items
        {QStringLiteral("wifi"), 0xe63e},                          // wifi
        {QStringLiteral("dot.radiowaves.left.and.right"), 0xe1a7}, // bluetooth
        {QStringLiteral("dot.radiowaves.right"), 0xe1a7},          // bluetooth
        {QStringLiteral("battery.100"), 0xe1a4},                   // battery_full
        {QStringLiteral("speaker.wave.2.fill"), 0xe050},           // volume_up
        {QStringLiteral("speaker.wave.2"), 0xe050},                // volume_up
        {QStringLiteral("clock"), 0xe8b5},                         // schedule
        {QStringLiteral("display"), 0xe30c},                       // desktop_windows
        {QStringLiteral("keyboard"), 0xe312},                      // keyboard
        {QStringLiteral("rectangle.on.rectangle"), 0xe0e2},        // screen_share
        {QStringLiteral("switch.2"), 0xe9f6},                      // toggle_on
        {QStringLiteral("magnifyingglass"), 0xe8b6},               // search
        {QStringLiteral("cloud.sun"), 0xe42d},                     // wb_cloudy
        {QStringLiteral("play.circle"), 0xe039},                   // play_circle_outline
        {QStringLiteral("moon"), 0xe3a7},                          // brightness_2
        {QStringLiteral("sun.max"), 0xe430},                       // wb_sunny
        {QStringLiteral("network"), 0xe80b},                       // public
        {QStringLiteral("circle.grid.2x2"), 0xe5c3},               // apps
        {QStringLiteral("info.circle"), 0xe88f},                   // info_outline
        // statistics
        {QStringLiteral("cpu"), 0xe322},           // memory (a chip)
        {QStringLiteral("memorychip"), 0xe30d},    // developer_board
        {QStringLiteral("internaldrive"), 0xe1db}, // storage
        // weather
        {QStringLiteral("sun.max.fill"), 0xe430},         // wb_sunny
        {QStringLiteral("cloud.sun.fill"), 0xe42d},       // wb_cloudy
        {QStringLiteral("cloud.fill"), 0xe2bd},           // cloud
        {QStringLiteral("cloud.fog.fill"), 0xe3c7},       // dehaze
        {QStringLiteral("cloud.drizzle.fill"), 0xe3ea},   // grain
        {QStringLiteral("cloud.sleet.fill"), 0xe798},     // water_drop
        {QStringLiteral("cloud.rain.fill"), 0xe798},      // water_drop
        {QStringLiteral("cloud.snow.fill"), 0xeb3b},      // ac_unit
        {QStringLiteral("cloud.heavyrain.fill"), 0xe91c}, // opacity
        {QStringLiteral("cloud.bolt.fill"), 0xe3e7},      // flash_on
        {QStringLiteral("cloud.bolt.rain.fill"), 0xebdb}, // thunderstorm
        // permissions and place
        {QStringLiteral("lock.shield"), 0xe32a},    // security
        {QStringLiteral("accessibility"), 0xe84e},  // accessibility
        {QStringLiteral("location.fill"), 0xe569},  // near_me
        {QStringLiteral("location.slash"), 0xe0c7}, // location_off
        // settings window
        {QStringLiteral("gearshape"), 0xe8b8},         // settings
        {QStringLiteral("menubar.rectangle"), 0xe069}, // web_asset
        {QStringLiteral("globe"), 0xe894},             // language
        {QStringLiteral("bolt.badge.clock"), 0xf1c2},  // rule
        {QStringLiteral("bell"), 0xe7f5},              // notifications_none
        {QStringLiteral("bell.badge"), 0xe7f7},        // notifications_active
        {QStringLiteral("info.circle"), 0xe88e},       // info
        {QStringLiteral("arrow.clockwise"), 0xe5d5},   // refresh
        // welcome window
        {QStringLiteral("power"), 0xe8ac}, // power_settings_new
    };
    return map;
}

} // namespace ravlin
