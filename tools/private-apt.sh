# Sourced behind steps.sh: apt-get with sources and lists of its own in the build tree, made from the
# system's Debian entries with their source packages added.
# shellcheck shell=bash

PRIVATE_APT=$BUILD/apt

write_private_sources() {
    local codename
    codename=$(. /etc/os-release && printf '%s' "$VERSION_CODENAME")
    rm -rf "$PRIVATE_APT/sources.list" "$PRIVATE_APT/sources.list.d"
    mkdir -p "$PRIVATE_APT/sources.list.d" "$PRIVATE_APT/lists/partial" \
        "$PRIVATE_APT/cache/archives/partial"
    # One-line entries: each Debian one twice, as deb and as deb-src.
    { cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null || true; } |
        awk -v code="$codename" '$1 == "deb" && $0 ~ "[ /]" code "([-/][a-z]+)? " {
            print; sub(/^deb /, "deb-src "); print }' | sort -u >"$PRIVATE_APT/sources.list"
    # Stanzas: every Debian one, with both types.
    { cat /etc/apt/sources.list.d/*.sources 2>/dev/null || true; } | awk -v code="$codename" '
        BEGIN { RS = ""; FS = "\n" }
        $0 ~ "Suites:[^\n]*" code {
            for (i = 1; i <= NF; i++) {
                if ($i ~ /^#/) continue
                if ($i ~ /^Types:/) $i = "Types: deb deb-src"
                print $i
            }
            print ""
        }' >"$PRIVATE_APT/sources.list.d/debian.sources"
}

private_apt() {
    write_private_sources
    apt-get -q \
        -o Dir::Etc::SourceList="$PRIVATE_APT/sources.list" \
        -o Dir::Etc::SourceParts="$PRIVATE_APT/sources.list.d" \
        -o Dir::State::Lists="$PRIVATE_APT/lists" \
        -o Dir::Cache="$PRIVATE_APT/cache" \
        -o APT::Sandbox::User=root \
        -o APT::Keep-Downloaded-Packages=false \
        -o Acquire::Languages=none \
        "$@"
}

# Fetches the package lists, unless that was done within the hour.
refresh_package_lists() {
    [ -z "$(find "$PRIVATE_APT/refreshed" -mmin -60 2>/dev/null)" ] || return 0
    private_apt update
    touch "$PRIVATE_APT/refreshed"
}
