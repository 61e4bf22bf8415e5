# The completion of `orbel` for SHELL, one of bash, zsh, fish; behind help.awk.

# Splits "-o, --output <FILE>" into shortName, longName and value.
function Split(words)
{
    value = match(words, /<.*>/) ? substr(words, RSTART + 1, RLENGTH - 2) : ""
    shortName = match(words, /(^|[ ,])-[a-z]/) ? substr(words, RSTART + RLENGTH - 1, 1) : ""
    longName = match(words, /--[a-z-]+/) ? substr(words, RSTART + 2, RLENGTH - 2) : ""
}

# What a value can be: the words that its text lists behind a colon, or files, or nothing that a shell knows.
function Choices(words)
{
    if (!match(words, /: [a-z]+(, [a-z]+)+\./))
        return ""
    words = substr(words, RSTART + 2, RLENGTH - 3)
    gsub(/,/, "", words)
    return words
}
function IsFile(ofValue) { return ofValue ~ /^(FILE|[A-Z]+\.[a-z]+)/ }
function Quoted(words) { gsub(/'/, "'\\''", words); return "'" words "'" }

function Bash(   i, n, command, values, options)
{
    print "# bash completion of orbel; made from its help."
    print "_orbel()\n{"
    print "    local current=\"${COMP_WORDS[COMP_CWORD]}\" previous=\"${COMP_WORDS[COMP_CWORD - 1]}\""
    print "    COMPREPLY=()"
    printf "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n        COMPREPLY=($(compgen -W '--help --version"
    for (i = 1; i <= subcommands; ++i)
        printf " %s", subcommand[i]
    print "' -- \"$current\"))\n        return\n    fi"
    print "    case \"${COMP_WORDS[1]} $previous\" in"
    for (i = 1; i <= subcommands; ++i) {
        command = "orbel " subcommand[i]
        for (n = 1; n <= entries[command]; ++n) {
            Split(name[command, n])
            if (!value || section[command, n] != "Options")
                continue
            printf "        \"%s --%s\"%s) ", subcommand[i], longName,
                shortName ? " | \"" subcommand[i] " -" shortName "\"" : ""
            if (IsFile(value))
                print "compopt -o default ;;"
            else
                printf "COMPREPLY=($(compgen -W '%s' -- \"$current\")) ;;\n", Choices(text[command, n])
        }
    }
    print "        *)\n            case \"${COMP_WORDS[1]} $current\" in"
    for (i = 1; i <= subcommands; ++i) {
        command = "orbel " subcommand[i]
        options = ""
        for (n = 1; n <= entries[command]; ++n) {
            Split(name[command, n])
            if (longName)
                options = options (options ? " " : "") "--" longName
        }
        printf "                \"%s -\"*) COMPREPLY=($(compgen -W '%s' -- \"$current\")) ;;\n", subcommand[i], options
    }
    print "                *) compopt -o default ;;\n            esac\n            ;;\n    esac\n}"
    print "complete -F _orbel orbel"
}

function Zsh(   i, n, command, what, words)
{
    print "#compdef orbel\n# zsh completion of orbel; made from its help."
    print "local context state line\nlocal -a subcommands"
    print "_arguments -C '(-h --help)'{-h,--help}'[tells this]' '(-v --version)'{-v,--version}'[tells the version]' \\"
    print "    '1:subcommand:->subcommand' '*::argument:->argument'"
    print "case $state in\nsubcommand)\n    subcommands=("
    for (i = 1; i <= subcommands; ++i)
        print "        " Quoted(subcommand[i] ":" summary[i])
    print "    )\n    _describe subcommand subcommands\n    ;;\nargument)\n    case $line[1] in"
    for (i = 1; i <= subcommands; ++i) {
        command = "orbel " subcommand[i]
        printf "    %s)\n        _arguments", subcommand[i]
        for (n = 1; n <= entries[command]; ++n) {
            if (section[command, n] == "Arguments") {
                printf " \\\n            '%s:%s:%s'", name[command, n] ~ /\.\.\./ ? "*" : "", name[command, n],
                    Choices(text[command, n]) ? "(" Choices(text[command, n]) ")" : name[command, n] ~ /DIR/ ? "_files -/" : name[command, n] ~ /FILE/ ? "_files" : "(" name[command, n] ")"
                continue
            }
            Split(name[command, n])
            words = text[command, n]
            gsub(/\[|\]|:/, "\\\\&", words)
            what = "[" words "]"
            if (value)
                what = what ":" value ":" (IsFile(value) ? "_files" : "(" Choices(text[command, n]) ")")
            if (shortName)
                printf " \\\n            %s{-%s,--%s}%s", Quoted("(-" shortName " --" longName ")"), shortName, longName, Quoted(what)
            else
                printf " \\\n            %s", Quoted("--" longName what)
        }
        print "\n        ;;"
    }
    print "    esac\n    ;;\nesac"
}

function Fish(   i, n, command, option)
{
    print "# fish completion of orbel; made from its help."
    print "complete -c orbel -n __fish_use_subcommand -f"
    print "complete -c orbel -n __fish_use_subcommand -s v -l version -d 'tells the version'"
    for (i = 1; i <= subcommands; ++i)
        printf "complete -c orbel -n __fish_use_subcommand -a %s -d %s\n", subcommand[i], Quoted(summary[i])
    for (i = 1; i <= subcommands; ++i) {
        command = "orbel " subcommand[i]
        for (n = 1; n <= entries[command]; ++n) {
            Split(name[command, n])
            if (!longName)
                continue
            option = (shortName ? " -s " shortName : "") " -l " longName
            if (value)
                option = option (IsFile(value) ? " -r -F" : " -x -a " Quoted(Choices(text[command, n])))
            printf "complete -c orbel -n '__fish_seen_subcommand_from %s'%s -d %s\n", subcommand[i], option, Quoted(text[command, n])
        }
    }
}

END {
    if (SHELL == "bash")
        Bash()
    else if (SHELL == "zsh")
        Zsh()
    else
        Fish()
}
