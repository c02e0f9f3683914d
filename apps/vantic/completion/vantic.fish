# Completion of vantic in fish. The program itself computes the candidates.
function __vantic_candidates
    set -l words (commandline -opc)
    set -l current (commandline -ct)
    set -l lines (command $words[1] complete -- $words[2..-1] "$current" 2>/dev/null)
    if test "$lines[1]" = :files
        __fish_complete_path $current
    else
        printf '%s\n' $lines
    end
end
complete -c vantic -f -a '(__vantic_candidates)'
