# shellcheck shell=sh
# What the scripts that run a command on a throw-away desktop have in common. A script sets `script` to its own name and
# sources this file: it then has a private folder in $session, a clean environment, and cleans up at its end.

failed() {
    echo "$script: $*" >&2
    exit 125
}

# need TOOL...: the desktop is made of these.
need() {
    for tool; do
        command -v "$tool" >/dev/null || failed "$tool is missing"
    done
}

# Everything that inherited this session's mark, as a list of /proc/PID/environ.
marked() { grep -lzxsF "DESKTOP_SESSION_MARK=$session" /proc/[0-9]*/environ; }

# alive PID...: whether any of them still runs; a dead child of ours that nobody waited for does not.
alive() {
    for pid; do
        grep -qs '^State:[[:space:]]*[^ZX[:space:]]' "/proc/$pid/status" && return 0
    done
    return 1
}

# shellcheck disable=SC2317 # the trap calls it
clean_up() {
    status=$?
    trap - EXIT INT TERM HUP
    # The pieces in reverse order, then children that services started.
    all=$pids
    for environment in $(marked); do
        pid=${environment#/proc/}
        all="$all ${pid%/environ}"
    done
    # shellcheck disable=SC2086 # a list of numbers
    if [ -n "$all" ]; then
        kill -TERM $all 2>/dev/null
        tries=60
        while [ $tries -gt 0 ] && alive $all; do
            tries=$((tries - 1))
            sleep 0.01
        done
        kill -KILL $all 2>/dev/null
        wait 2>/dev/null
    fi
    rm -rf "$session"
    exit "$status"
}

# ready NAME COMMAND...: waits, for at most ten seconds, until the command succeeds.
ready() {
    name=$1
    shift
    tries=1000
    until "$@" >/dev/null 2>&1; do
        tries=$((tries - 1))
        [ $tries -gt 0 ] || failed "$name did not come up"
        sleep 0.01
    done
}

bus_is_up() { [ -S "$XDG_RUNTIME_DIR/bus" ] && dbus-send --session --print-reply --dest=org.freedesktop.DBus / org.freedesktop.DBus.GetId; }

# owns_name NAME: whether something has that name on the session bus.
owns_name() {
    dbus-send --session --print-reply=literal --dest=org.freedesktop.DBus / \
        org.freedesktop.DBus.NameHasOwner "string:$1" | grep -q 'boolean true'
}

a11y_is_up() { dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress; }

# start_quiet_bus: a bus that starts nothing by itself; what is missing stays missing.
start_quiet_bus() {
    cat >"$session/bus.conf" <<END_OF_FILE
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>$DBUS_SESSION_BUS_ADDRESS</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
END_OF_FILE
    dbus-daemon --config-file="$session/bus.conf" --nofork --nopidfile 2>"$session/bus.log" &
    pids="$! $pids"
    ready "the session bus" bus_is_up
}

# start_accessibility: on a bus that does not start it by itself.
start_accessibility() {
    unset NO_AT_BRIDGE
    export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
    /usr/libexec/at-spi-bus-launcher >"$session/a11y.log" 2>&1 &
    pids="$! $pids"
    ready "the accessibility bus" a11y_is_up
}

pipewire_is_up() { [ -S "$XDG_RUNTIME_DIR/pipewire-0" ]; }
wireplumber_is_up() { pw-cli ls Client | grep -q WirePlumber; }

# start_pipewire: with what connects its streams; PIPEWIRE_PID and WIREPLUMBER_PID are their processes.
start_pipewire() {
    pipewire >"$session/pipewire.log" 2>&1 &
    PIPEWIRE_PID=$!
    export PIPEWIRE_PID
    pids="$PIPEWIRE_PID $pids"
    ready "PipeWire" pipewire_is_up
    wireplumber >"$session/wireplumber.log" 2>&1 &
    WIREPLUMBER_PID=$!
    export WIREPLUMBER_PID
    pids="$WIREPLUMBER_PID $pids"
    ready "WirePlumber" wireplumber_is_up
}

# The tray's watcher knows somebody who shows the icons.
tray_is_up() {
    dbus-send --session --print-reply=literal --dest=org.kde.StatusNotifierWatcher /StatusNotifierWatcher \
        org.freedesktop.DBus.Properties.Get string:org.kde.StatusNotifierWatcher \
        string:IsStatusNotifierHostRegistered | grep -q 'boolean true'
}

# start_portal BACKEND [COMMAND]...: with that back end alone, run by the command; PORTAL_PID and PORTAL_BACKEND_PID are
# their processes. Without PipeWire the back end need not come up. A script may set the folder that the back end is in,
# and a library for the portal to preload.
portal_back_end_folder=/usr/libexec
portal_front_end_preload=''
start_portal() {
    backend=$1
    shift
    /usr/libexec/xdg-permission-store >"$session/permissions.log" 2>&1 &
    pids="$! $pids"
    ready "the permission store" owns_name org.freedesktop.impl.portal.PermissionStore
    "$@" "$portal_back_end_folder/xdg-desktop-portal-$backend" >"$session/portal-backend.log" 2>&1 &
    PORTAL_BACKEND_PID=$!
    export PORTAL_BACKEND_PID
    pids="$PORTAL_BACKEND_PID $pids"
    if pipewire_is_up; then
        ready "the portal's back end" owns_name "org.freedesktop.impl.portal.desktop.$backend"
    fi
    # Only this back end: the portal falls back on any other that is installed.
    mkdir "$session/portals" && cp "/usr/share/xdg-desktop-portal/portals/$backend.portal" "$session/portals/" \
        || failed "$backend.portal is missing"
    XDG_DESKTOP_PORTAL_DIR="$session/portals" LD_PRELOAD="$portal_front_end_preload" \
        /usr/libexec/xdg-desktop-portal >"$session/portal.log" 2>&1 &
    PORTAL_PID=$!
    export PORTAL_PID
    pids="$PORTAL_PID $pids"
    ready "the portal" owns_name org.freedesktop.portal.Desktop
}

# run_command COMMAND...: runs it on the desktop that is up; gives its status.
run_command() {
    exec 3<&0 # a command in the background would read nothing
    "$@" <&3 3<&- &
    command_pid=$!
    pids="$command_pid $pids"
    wait "$command_pid"
}

session=$(mktemp -d "/tmp/$script.XXXXXX") || failed "no temporary folder" # a short path: socket names end at 107 bytes
pids=''
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
trap 'exit 129' HUP

unset DISPLAY WAYLAND_DISPLAY SWAYSOCK DBUS_SESSION_BUS_ADDRESS XAUTHORITY SESSION_MANAGER AT_SPI_BUS_ADDRESS \
    PIPEWIRE_REMOTE QUILLBOX_CAPTURE_BACKEND QUILLBOX_CLIPBOARD_BACKEND QUILLBOX_HOTKEY_BACKEND \
    QT_SCALE_FACTOR QT_SCREEN_SCALE_FACTORS QT_FONT_DPI
export DESKTOP_SESSION_MARK="$session"
export HOME="$session/home" XDG_RUNTIME_DIR="$session/run" XDG_CONFIG_HOME="$session/config" \
    XDG_DATA_HOME="$session/data" XDG_CACHE_HOME="$session/cache" XDG_STATE_HOME="$session/state"
mkdir -m 0700 "$HOME" "$XDG_RUNTIME_DIR" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_STATE_HOME" \
    || failed "no session folders"
export LC_ALL=C.UTF-8 LIBGL_ALWAYS_SOFTWARE=1 NO_AT_BRIDGE=1
export DBUS_SESSION_BUS_ADDRESS="unix:path=$XDG_RUNTIME_DIR/bus"
