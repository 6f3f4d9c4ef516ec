# Completions of deploymgr for fish. The program itself knows what may come next.

function __deploymgr_complete
    set -l words (commandline -opc)
    set -l current (commandline -ct)
    set -l lines (command $words[1] __complete fish $words[2..-1] "$current" 2>/dev/null)
    switch "$lines[1]"
        case words
            string join \n -- $lines[2..-1]
        case directories
            __fish_complete_directories "$current" ''
        case projects files
            __fish_complete_path "$current"
    end
end

complete -c deploymgr -f -a '(__deploymgr_complete)'
