# What may stand at the cursor is asked of vantro itself. Where it knows nothing, file names are offered.
function __vantro_candidates
    set --local words (commandline --tokenize --cut-at-cursor) (commandline --current-token --cut-at-cursor)
    set --local candidates ($words[1] complete -- $words[2..] 2>/dev/null)
    if test (count $candidates) -gt 0
        printf '%s\n' $candidates
    else
        __fish_complete_path $words[-1]
    end
end
complete --command vantro --no-files --arguments '(__vantro_candidates)'
