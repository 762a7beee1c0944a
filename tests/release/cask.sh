#!/usr/bin/env bash
# The Homebrew cask: valid Ruby, and what it says agrees with the bundle (identifier, minimum
# system, application name, update feed) and with the files Ravlin writes (its settings file,
# its self-test logs). The release script's update keeps it so.
# Usage: cask.sh INFO_PLIST
set -euo pipefail
plist=$1
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
value() { bash "$root/scripts/release/plist-value.sh" "$plist" "$1"; }
logs=$(sed -n 's/.*QStringLiteral("\(ravlin_[a-z_]*\.log\)").*/\1/p' "$root/src/foundation/DiagnosticLogs.h" | tr '\n' ' ')
[ -n "$logs" ] || fail "no self-test log names found in DiagnosticLogs.h"

check() { # check CASKFILE
  ruby -c "$1" > /dev/null || fail "$1 is not valid Ruby"
  ruby - "$1" "$(value CFBundleIdentifier)" "$(value LSMinimumSystemVersion)" "$(value CFBundleName)" \
    "$(value SUFeedURL)" "$logs" <<'RUBY'
# A stand-in for Homebrew's cask language that records what the cask declares.
class Recorder
  attr_reader :fields
  def initialize; @fields = { "zap" => [], "uninstall" => {} }; end
  def method_missing(name, *args, &block)
    @fields[name.to_s] = args.length == 1 ? args.first : args
    instance_eval(&block) if block && name != :strategy
    @fields["strategy_block"] = block if name == :strategy
  end
  def respond_to_missing?(*) = true
  def version(v = nil) = v ? (@fields["version"] = v) : @fields["version"]
  def livecheck(&block) = instance_eval(&block)
  def url(u, **opts) = (@fields[@fields.key?("url") ? "livecheck_url" : "url"] = u)
  def uninstall(**opts) = @fields["uninstall"] = opts
  def zap(**opts) = @fields["zap"] = Array(opts[:trash])
  def depends_on(**opts) = @fields["depends_on"] = opts
  def appdir = "/Applications"
end
$cask = nil
def cask(token, &block)
  r = Recorder.new
  r.instance_eval(&block)
  $cask = [token, r.fields]
end
file, id, minimum, name, feed, logs = ARGV
load file
token, f = $cask
errors = []
errors << "token #{token}" unless token == "ravlin"
errors << "version #{f["version"]}" unless f["version"] =~ /\A\d+\.\d+\.\d+\z/
errors << "sha256 #{f["sha256"].inspect}" unless f["sha256"] == :no_check || f["sha256"].to_s =~ /\A\h{64}\z/
errors << "url #{f["url"]}" unless f["url"] =~ %r{\Ahttps://.*#\{version\}.*\.dmg\z} || f["url"] =~ %r{\Ahttps://.*#{Regexp.escape(f["version"])}.*\.dmg\z}
%w[name desc homepage].each { |k| errors << "no #{k}" if f[k].to_s.empty? }
errors << "homepage #{f["homepage"]}" unless f["homepage"].to_s.start_with?("https://")
errors << "livecheck url #{f["livecheck_url"]} is not the feed #{feed}" unless f["livecheck_url"] == feed
errors << "livecheck strategy #{f["strategy"].inspect}" unless f["strategy"] == :sparkle
errors << "auto_updates" unless f["auto_updates"] == true
macos = { 13 => :ventura, 14 => :sonoma, 15 => :sequoia, 26 => :tahoe }[minimum.to_i]
errors << "depends_on #{f["depends_on"].inspect} for macOS #{minimum}" unless f["depends_on"] == { macos: ">= :#{macos}" }
errors << "app #{f["app"]}" unless f["app"] == "#{name}.app"
errors << "uninstall quit #{f["uninstall"][:quit]}" unless f["uninstall"][:quit] == id
errors << "uninstall login_item #{f["uninstall"][:login_item]}" unless f["uninstall"][:login_item] == name
# Removing Ravlin puts back the system settings it changed: its own executable is run for it.
script = f["uninstall"][:script] || {}
errors << "uninstall script #{script[:executable]}" unless script[:executable] == "/Applications/#{name}.app/Contents/MacOS/#{name}"
errors << "uninstall script args #{script[:args].inspect}" unless script[:args] == ["--restore-system-settings"]
zap = f["zap"]
expected = ["~/Library/Preferences/#{id}.plist", "~/Library/Caches/#{id}"] + logs.split.map { |l| "/tmp/#{l}" }
(expected - zap).each { |p| errors << "zap misses #{p}" }
zap.each do |p|
  errors << "zap path #{p} is neither the user's Library nor a log" unless p.start_with?("~/Library/", "/tmp/ravlin_")
  errors << "zap path #{p} names another identifier" if p =~ /de\.vexa\./ && !p.include?(id)
end
# The strategy's block picks the newest item without a channel.
Item = Struct.new(:channel, :short_version)
picked = f["strategy_block"]&.call([Item.new("beta", "0.3.0-beta.1"), Item.new(nil, "0.2.0")])
errors << "the livecheck block picked #{picked.inspect}, not the stable 0.2.0" unless picked == "0.2.0"
abort("FAIL: " + errors.join("; ")) unless errors.empty?
RUBY
}

check "$root/Casks/ravlin.rb"
# After a release's update the cask is still valid and points at the release.
cp "$root/Casks/ravlin.rb" "$work/ravlin.rb"
sha=$(printf 'release' | sha256sum | cut -d' ' -f1)
bash "$root/scripts/release/update-cask.sh" --version 9.8.7 --sha256 "$sha" "$work/ravlin.rb"
check "$work/ravlin.rb"
grep -q "^  version \"9.8.7\"" "$work/ravlin.rb" && grep -q "^  sha256 \"$sha\"" "$work/ravlin.rb" ||
  fail "update-cask.sh did not write the version and checksum"
! bash "$root/scripts/release/update-cask.sh" --version 1.0.0-beta.1 --sha256 "$sha" "$work/ravlin.rb" 2>/dev/null ||
  fail "a beta went into the cask"
echo "cask: valid, and agrees with the bundle"
