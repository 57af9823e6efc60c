#!/usr/bin/env bash
# Installs the build into a fresh prefix and checks every installed file.
#   check_install.sh BUILD-FOLDER DESKTOP-ID VERSION
set -euo pipefail
build=$1 id=$2 version=$3
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
cmake --install "$build" --prefix "$prefix" >/dev/null

failed=0
check() {
    local out
    out=$("$@" 2>&1) || { echo "FAILED: $*"; echo "$out"; failed=1; }
}
share=$prefix/share
expected=(bin/varnok-editor bin/varnok-level libexec/varnok/varnok-level-render.so
          share/applications/$id.desktop share/mime/packages/$id.xml
          share/metainfo/$id.metainfo.xml share/man/man1/varnok-editor.1.gz
          share/man/man1/varnok-level.1.gz share/doc/varnok-editor/copyright
          share/doc/varnok-editor/changelog.Debian.gz share/lintian/overrides/varnok-editor)
for side in 16 32 48 64 128 256; do
    expected+=(share/icons/hicolor/${side}x$side/apps/$id.png)
    check test "$(identify -format %wx%h "$share/icons/hicolor/${side}x$side/apps/$id.png")" \
        = "${side}x$side"
done
for file in "${expected[@]}"; do check test -f "$prefix/$file"; done
check test "$(cd "$prefix" && find . -type f | wc -l)" = ${#expected[@]}

check desktop-file-validate "$share/applications/$id.desktop"
check appstreamcli validate --no-net --explain "$share/metainfo/$id.metainfo.xml"
check test "$("$prefix/bin/varnok-editor" --version)" = "varnok-editor $version"
check test "$("$prefix/bin/varnok-level" --version)" = "varnok-level $version"
# The installed companion finds its render module.
printf '1\r\n 17 \r\n 17 \r\n' > "$prefix/tiny.VRK"
for _ in $(seq 17); do printf '00000000000000000\r\n' >> "$prefix/tiny.VRK"; done
check "$prefix/bin/varnok-level" render "$prefix/tiny.VRK" -o "$prefix/tiny.png" --minimap
rm -f "$prefix/tiny.VRK" "$prefix/tiny.png"
for page in varnok-editor varnok-level; do
    warnings=$(LC_ALL=C.UTF-8 man --warnings -l "$share/man/man1/$page.1.gz" 2>&1 >/dev/null)
    check test -z "$warnings"
done
# Both spellings of the level file's extension name the MIME type.
update-mime-database "$share/mime" >/dev/null 2>&1
for glob in '\*.VRK' '\*.vrk'; do
    check grep -q "application/x-varnok-level:$glob" "$share/mime/globs2"
done
# The Debian package made of this build: lintian finds no error and no warning in it.
if command -v lintian >/dev/null && command -v cpack >/dev/null; then
    (cd "$build" && cpack -G DEB -B "$prefix/package" >/dev/null 2>&1)
    check lintian --fail-on error,warning "$prefix"/package/varnok-editor_*.deb
fi
exit $failed
