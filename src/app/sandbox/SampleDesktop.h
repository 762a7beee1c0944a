#pragma once

#include <QString>

namespace ravlin::sandbox {

// A believable desktop for the demo and the interactive sandbox: the system's own
// items and a dozen applications with menu-bar items, declared right to left.
inline QString sampleDesktopScript()
{
    return QStringLiteral(R"(# The sample desktop.
screen 1440 900 menubar=24
app com.apple.controlcenter "Control Center" policy=accessory
app com.apple.Spotlight "Spotlight" policy=accessory
app com.apple.TextInputMenuAgent "TextInputMenuAgent" policy=accessory
app com.example.chatter "Chatter"
app com.example.cloudbox "CloudBox"
app com.example.tunnel "Tunnel VPN"
app com.example.keyring "Keyring" policy=accessory
app com.example.tunes "Tunes"
app com.example.clipstack "ClipStack" policy=accessory
app com.example.snapper "Snapper" policy=accessory
app com.example.timely "Timely"
app com.example.timevault "TimeVault" policy=accessory
app com.example.skycast "SkyCast"
app com.example.focusbar "Focus Bar" policy=accessory
app com.example.paste "Paste Helper" policy=accessory running=no
item com.apple.controlcenter "Clock" fixed width=120 ax.title="Clock"
item com.apple.controlcenter "BentoBox-0" fixed width=30 ax.description="Control Center"
item com.apple.Spotlight "Item-0" ax.description="Spotlight"
item com.apple.controlcenter "WiFi" width=26 ax.title="Wi-Fi, connected"
item com.apple.controlcenter "Battery" width=34 ax.title="Battery, 82 percent"
item com.apple.controlcenter "Bluetooth" ax.description="Bluetooth"
item com.apple.TextInputMenuAgent "Item-0" width=26 ax.description="Input Menu"
item com.example.chatter "Item-0" ax.title="Chatter"
item com.example.cloudbox "CloudBox Status" width=24 ax.description="CloudBox, up to date"
item com.example.tunnel "Tunnel VPN" ax.title="Tunnel VPN, connected" ax.actions=AXShowMenu,AXPress
item com.example.keyring "Item-0" ax.description="Keyring"
item com.example.tunes "Tunes Mini" width=28 ax.title="Tunes"
item com.example.clipstack "ClipStack" ax.help="ClipStack clipboard history"
item com.example.snapper "Item-0" ax.title="Snapper"
item com.example.timely "Timely" width=54 ax.title="Timely, 1:24"
item com.example.timevault "TimeVault" ax.description="TimeVault backup"
item com.example.skycast "SkyCast" width=40 ax.title="SkyCast"
item com.example.focusbar "Item-0" ax.title="Focus Bar"
item com.example.paste "Paste Helper"
probe cpu 1200 600 8200 0
probe ram 6442450944 17179869184
probe battery 82 100
probe disk 994662584320 431245393920
probe net 120000000 30000000
location 52.52 13.405 "Berlin"
forecast {"current": {"temperature_2m": 14.6, "weather_code": 2}, "daily": {"temperature_2m_max": [17.2], "temperature_2m_min": [8.9]}}
update offer 0.2.0
)");
}

} // namespace ravlin::sandbox
