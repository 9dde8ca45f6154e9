#!/usr/bin/env bash
# Pictures of every page from a seeded gateway: at 1280x720, at 960x600, at 200 %, in dark; into build/screens/.
# With "--docs" the ones that README shows are renewed too.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/set_up.sh

install_packages "${build_packages[@]}" "${screen_packages[@]}"
configure release
cmake --build --preset release

port=4091
build/bin/trunvex-gateway --listen 127.0.0.1:$port --seed 7 --esn 0047110815 --life busy --quiet &
gateway=$!
trap 'kill $gateway' EXIT
sleep 0.3
tour() { xvfb-run -a -s "-screen 0 2720x1600x24" build/bin/trunvex-tour 127.0.0.1 $port "$@"; }
tour build/screens/light
tour build/screens/dark --dark
tour build/screens/small --small
QT_SCALE_FACTOR=2 tour build/screens/200
if [ "${1:-}" = --docs ]; then
    mkdir -p docs/pictures
    cp build/screens/light/01-connect.png docs/pictures/connect.png
    cp build/screens/light/02-main.png docs/pictures/tree.png
    cp build/screens/light/07-sim.png docs/pictures/board.png
    cp build/screens/dark/07-sim.png docs/pictures/board-dark.png
    cp build/screens/light/06-system.png docs/pictures/system.png
    cp build/screens/light/09-call.png docs/pictures/calls.png
    cp build/screens/light/22-sim-edited.png docs/pictures/sim.png
fi
