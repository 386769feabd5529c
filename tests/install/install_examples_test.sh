#!/usr/bin/env bash
# Installs the build into a temporary prefix, then builds the two examples against that
# installed tree only (a copy of examples/, once through find_package, once through
# pkg-config) and runs them. Usage: install_examples_test.sh BUILD-DIR EXAMPLES-DIR SOURCE-DIR [FLAGS]
# FLAGS are extra compiler flags (the sanitizers, when the build under test uses them).
set -euo pipefail
build=$1 examples=$2 source=$3 flags=${4:-}
work=$(mktemp -d /tmp/grainsmith-install-XXXXXX)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

step() { echo "== $*"; }

step "install into $prefix"
cmake --install "$build" --prefix "$prefix" >/dev/null
# Nothing installed may point back into the source or build tree.
if grep -rIl -e "$source" -e "$build" "$prefix"; then
  echo "error: the installed files above refer to the source or build tree" >&2
  exit 1
fi
cp -r "$examples" "$work/examples"
"$prefix/bin/grainsmith" --version
"$prefix/bin/grainsmith" record Wood --set octaves=3 -o "$work/wood.rec"

step "find_package(Grainsmith) build"
cmake -S "$work/examples" -B "$work/cmake-build" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build "$work/cmake-build" >/dev/null
plugin=$(find "$prefix" -name libgrainsmith.so)
# The C interface of kinds.h lives in the core library; the plug-in exports only its entries.
if nm -D --defined-only "$plugin" | grep -w 'grainsmith_[a-z_]*'; then
  echo "error: the plug-in exports the core's C interface" >&2
  exit 1
fi
nm -D --defined-only "$(find "$prefix" -name 'libgrainsmith_core.so.*.*.*')" | grep -qw grainsmith_default_record
"$work/cmake-build/c_host" "$plugin" "$work/wood.rec"
"$work/cmake-build/cpp_user" >/dev/null
"$work/cmake-build/c_many" >/dev/null

step "pkg-config build"
export PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name grainsmith.pc)")
[ "$(pkg-config --modversion grainsmith)" = "$("$prefix/bin/grainsmith" --version | awk '{print $2; exit}')" ]
# shellcheck disable=SC2046,SC2086
cc -std=c11 $flags -o "$work/c_host" "$work/examples/c_host.c" $(pkg-config --cflags grainsmith) -ldl
# shellcheck disable=SC2046,SC2086
c++ -std=c++20 $flags -o "$work/cpp_user" "$work/examples/cpp_user.cpp" $(pkg-config --cflags --libs grainsmith)
# The README's line, as it stands: the program runs from the prefix with no further setting.
# shellcheck disable=SC2046,SC2086
cc -std=c11 $flags -o "$work/c_many" "$work/examples/c_many.c" $(pkg-config --cflags --libs grainsmith) -pthread
plugin_path=$(pkg-config --variable=plugin grainsmith)
[ "$plugin_path" = "$(realpath -m "$plugin_path")" ] || { echo "error: unclean plug-in path $plugin_path" >&2; exit 1; }
"$work/c_host" "$plugin_path" "$work/wood.rec" >/dev/null
"$work/cpp_user" >/dev/null
"$work/c_many" >/dev/null
# Documentation and examples come along.
[ -f "$prefix/share/doc/grainsmith/examples/c_many.c" ] && [ -f "$prefix/share/doc/grainsmith/reference/index.md" ]
step "ok"
