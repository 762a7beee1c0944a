cask "ravlin" do
  version "0.1.0"
  sha256 :no_check

  url "https://github.com/vexa/ravlin/releases/download/v#{version}/Ravlin-#{version}.dmg"
  name "Ravlin"
  desc "Menu bar organiser that hides items and shows them as tiles"
  homepage "https://github.com/vexa/ravlin"

  livecheck do
    url "https://raw.githubusercontent.com/vexa/ravlin/main/updates/appcast.xml"
    strategy :sparkle do |items|
      items.find { |item| item.channel.nil? }&.short_version
    end
  end

  auto_updates true
  depends_on macos: ">= :ventura"

  app "Ravlin.app"

  # Once Ravlin has quit, it puts back the system settings it changed (the menu-bar item
  # spacing) as they were before it changed them.
  uninstall quit:       "de.vexa.Ravlin",
            login_item: "Ravlin",
            script:     {
              executable: "#{appdir}/Ravlin.app/Contents/MacOS/Ravlin",
              args:       ["--restore-system-settings"],
              must_succeed: false,
            }

  zap trash: [
    "~/Library/Caches/de.vexa.Ravlin",
    "~/Library/HTTPStorages/de.vexa.Ravlin",
    "~/Library/HTTPStorages/de.vexa.Ravlin.binarycookies",
    "~/Library/Preferences/de.vexa.Ravlin.plist",
    "~/Library/Saved Application State/de.vexa.Ravlin.savedState",
    "/tmp/ravlin_capture_all.log",
    "/tmp/ravlin_hide.log",
    "/tmp/ravlin_move.log",
  ]
end
