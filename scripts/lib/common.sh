# Shared by the shell scripts: paths, progress and error messages. To be sourced.

build_cache=${XDG_CACHE_HOME:-$HOME/.cache}/vantro-build
models_folder=${XDG_DATA_HOME:-$HOME/.local/share}/vantro/models

phase() { # TEXT
  phase_text=$1
  phase_start_s=$SECONDS
  printf '\n== %s\n' "$phase_text"
}

phase_done() { printf -- '-- %s: %d s\n' "$phase_text" $((SECONDS - phase_start_s)); }

fail() { # TEXT
  printf '%s: %s\n' "${0##*/}" "$1" >&2
  exit 1
}

fail_with_log() { # TEXT LOG
  printf '%s: %s. The end of %s:\n' "${0##*/}" "$1" "$2" >&2
  tail -n 40 "$2" >&2
  exit 1
}

# Runs a command with its output in a log, which is shown only on failure.
quietly() { # LOG COMMAND...
  local log=$1
  shift
  mkdir -p "$(dirname "$log")"
  "$@" >"$log" 2>&1 || fail_with_log "$(printf '"%s" failed' "$*")" "$log"
}

build_preset() { # PRESET [CMAKE-OPTION...]
  phase "Building ($1)"
  # Compiler output is cached between builds, even across build folders.
  export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
  quietly "build/logs/$1-configure.log" cmake --preset "$@" -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
  quietly "build/logs/$1-build.log" cmake --build --preset "$1" --parallel "$(nproc)"
  phase_done
}
