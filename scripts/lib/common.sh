# What the shell scripts share: where things are kept, and how progress and errors are told. To be sourced.

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
  tail -n 20 "$2" >&2
  exit 1
}
