#!/usr/bin/env bash
# Makes sure a CUPS scheduler runs with the cups-pdf print queue the printer tests print to
# (ZantorPDF, or $ZANTOR_TEST_PRINTER), writing its PDFs to /var/spool/cups-pdf/zantor/<user>.
# Safe to run again and again. When CUPS cannot be set up here it says why and still exits 0:
# the printer tests then report themselves as skipped.
set -uo pipefail

queue=${ZANTOR_TEST_PRINTER:-ZantorPDF}
spool_root=/var/spool/cups-pdf/zantor
queue_conf=/etc/cups/cups-pdf-$queue.conf

note() {
    echo "setup-cups: $*" >&2
}

give_up() {
    note "$* -- the system printer tests will be skipped"
    exit 0
}

scheduler_running() {
    lpstat -r 2>/dev/null | grep -q "scheduler is running"
}

# cups-pdf reads cups-pdf-<name>.conf for a queue whose device is cups-pdf:/<name>, so the
# user's own cups-pdf setup stays as it is. Every user gets a folder of their own below a
# shared one; job numbers in the names keep the files apart.
wanted_conf=$(
    cat <<CONF
# Written by Zantor's scripts/setup-cups.sh for the printer tests.
Out $spool_root/\${USER}
Label 2
Grp lpadmin
LogType 3
CONF
)
queue_ready() {
    lpstat -v "$queue" 2>/dev/null | grep -q "cups-pdf:/$queue" &&
        lpstat -p "$queue" 2>/dev/null | grep -q "enabled" &&
        [ -f "$queue_conf" ] && [ "$(cat "$queue_conf")" = "$wanted_conf" ] &&
        [ -d "$spool_root" ]
}

command -v lpstat >/dev/null || give_up "the CUPS client tools are not installed"

if scheduler_running && queue_ready; then
    exit 0
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
        as_root=(sudo -n)
    else
        give_up "not root and no password-less sudo, so CUPS cannot be started or the queue $queue added"
    fi
fi

[ -x /usr/sbin/cupsd ] || give_up "cupsd is not installed"
[ -e /usr/lib/cups/backend/cups-pdf ] || give_up "the cups-pdf backend is not installed"

# The scheduler: through systemd where it runs, else started directly (containers have no init).
if ! scheduler_running; then
    if [ -d /run/systemd/system ] && command -v systemctl >/dev/null; then
        "${as_root[@]}" systemctl start cups >/dev/null 2>&1 || true
    fi
    if ! scheduler_running; then
        "${as_root[@]}" mkdir -p /run/cups
        "${as_root[@]}" /usr/sbin/cupsd >/dev/null 2>&1 || true
    fi
    for _ in $(seq 1 50); do
        scheduler_running && break
        sleep 0.2
    done
    scheduler_running || give_up "the CUPS scheduler does not start here"
fi

if [ ! -f "$queue_conf" ] || [ "$(cat "$queue_conf")" != "$wanted_conf" ]; then
    printf '%s\n' "$wanted_conf" | "${as_root[@]}" tee "$queue_conf" >/dev/null ||
        give_up "cannot write $queue_conf"
fi
"${as_root[@]}" mkdir -p "$spool_root" && "${as_root[@]}" chmod 1777 "$spool_root" ||
    give_up "cannot make $spool_root"

if ! lpstat -v "$queue" 2>/dev/null | grep -q "cups-pdf:/$queue"; then
    ppd=""
    for candidate in /usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd /usr/share/ppd/cups-pdf/*.ppd \
        /usr/share/cups/model/CUPS-PDF*.ppd; do
        if [ -f "$candidate" ]; then
            ppd=$candidate
            break
        fi
    done
    if [ -n "$ppd" ]; then
        model=(-P "$ppd")
    else
        model=(-m raw)
    fi
    "${as_root[@]}" lpadmin -p "$queue" -E -v "cups-pdf:/$queue" "${model[@]}" 2>/dev/null ||
        give_up "lpadmin could not add the queue $queue"
fi
"${as_root[@]}" cupsenable "$queue" 2>/dev/null || true
"${as_root[@]}" cupsaccept "$queue" 2>/dev/null || true

queue_ready || give_up "the queue $queue is not ready"
note "CUPS queue $queue prints to $spool_root/<user>"
