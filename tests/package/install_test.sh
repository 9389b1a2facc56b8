#!/usr/bin/env bash
# Builds the Debian package, unpacks it into a scratch root and starts the unpacked program under Xvfb with
# a scratch HOME: it must start and keep its database in that HOME's data folder. Lintian, when there,
# must find no error in the package.
# Usage: install_test.sh BUILD_DIR
set -uo pipefail
build=$(cd "$1" && pwd)

skip() { echo "SKIPPED: $*"; exit 77; }
fail() { echo "FAILED: $*"; exit 1; }
for tool in cpack dpkg-deb xvfb-run xauth; do
  command -v "$tool" >/dev/null || skip "$tool is not installed (scripts/install-deps.sh installs it)"
done
[ -x "$build/bin/homebook" ] || fail "build the program first: $build/bin/homebook is missing"

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

echo "== Screenshots"
cmake --build "$build" --target screenshots >"$scratch/screenshots.log" 2>&1 ||
  { cat "$scratch/screenshots.log"; fail "the screenshots of the AppStream data were not taken"; }

echo "== Package"
(cd "$scratch" && cpack -G DEB --config "$build/CPackConfig.cmake" -B "$scratch/pkg" >cpack.log 2>&1) ||
  { cat "$scratch/cpack.log"; fail "cpack could not make the package"; }
deb="$scratch/pkg/homebook_2.0.0_amd64.deb"
[ -f "$deb" ] || fail "no $deb; cpack made: $(ls "$scratch/pkg")"
dpkg-deb --field "$deb" Package Version Depends Recommends
depends=$(dpkg-deb --field "$deb" Depends)
for lib in libqt6widgets6 libqt6gui6 libqt6core6 libsqlite3-0 libcsv3; do
  grep -q "$lib" <<<"$depends" || fail "the package does not depend on $lib"
done
[ "$(dpkg-deb --field "$deb" Recommends)" = "glabels-data" ] || fail "glabels-data is not recommended"

echo "== Unpacked"
root="$scratch/root"
dpkg -x "$deb" "$root" || fail "dpkg -x could not unpack the package"
for file in usr/bin/homebook usr/libexec/homebook/homebook-mdbreader usr/share/homebook/hb10db.shell usr/share/homebook/export.mdb \
  usr/share/homebook/help/index.html usr/share/applications/org.homebook.Homebook.desktop \
  usr/share/metainfo/org.homebook.Homebook.metainfo.xml usr/share/icons/hicolor/scalable/apps/homebook.svg \
  usr/share/icons/hicolor/48x48/apps/homebook.png usr/share/icons/hicolor/256x256/apps/homebook.png \
  usr/share/homebook/screenshots/listings.png usr/share/homebook/screenshots/report.png; do
  [ -f "$root/$file" ] || fail "the package lacks /$file"
done
if command -v desktop-file-validate >/dev/null; then
  desktop-file-validate "$root/usr/share/applications/org.homebook.Homebook.desktop" || fail "desktop entry"
fi
if command -v appstreamcli >/dev/null; then
  appstreamcli validate --no-net "$root/usr/share/metainfo/org.homebook.Homebook.metainfo.xml" || fail "metainfo"
fi

echo "== Started"
home="$scratch/home"
mkdir -p "$home"
# The program folder is not the user's: the database must go to HOME's data folder.
chmod -R a-w "$root/usr"
out=$(env -i PATH=/usr/bin:/bin HOME="$home" HOMEBOOK_END_AFTER_START=1 \
  xvfb-run -a -s '-screen 0 1280x1024x24' "$root/usr/bin/homebook" 2>"$scratch/stderr")
status=$?
chmod -R u+w "$root/usr"
echo "$out"
[ $status -eq 0 ] || { cat "$scratch/stderr"; fail "the program ended with status $status"; }
grep -q "Shown at start: .*FormAbout" <<<"$out" || fail "the start did not show the about window"
data="$home/.local/share/Homebook/Data"
[ -f "$data/varlo.mdb" ] || fail "no database in $data: $(ls -R "$home")"
[ -d "$data/backup" ] || fail "no backup folder in $data"
[ ! -e "$root/usr/bin/Data" ] || fail "the program wrote beside itself"
if command -v sqlite3 >/dev/null; then
  version=$(sqlite3 "$data/varlo.mdb" "select programversion from ProgramVersion")
  [ "$version" = "2.0" ] || [ "$version" = "2" ] || fail "the database is at version $version, not 2.0"
fi

echo "== Lintian"
if command -v lintian >/dev/null; then
  lintian --tag-display-limit 0 "$deb" | tee "$scratch/lintian.log"
  grep -q '^E:' "$scratch/lintian.log" && fail "lintian reports errors"
else
  echo "lintian is not installed; the package was not checked by it"
fi
echo "PASSED"
