# Reads what `orbel --help` and `orbel SUBCOMMAND --help` print, one behind the other, for manual.awk and completion.awk.
# subcommands: their number; subcommand[n], summary[n]. For each command "orbel", "orbel view", ...: synopsis[command],
# description[command] and entries[command], the number of its options and arguments; for each of these
# section[command, n], name[command, n] as "-o, --output <FILE>", text[command, n].

/^Usage: / {
    command = $2
    if ($3 in known)
        command = command " " $3
    synopsis[command] = substr($0, 8)
    part = "Description"
    next
}
/^(Options|Arguments|Subcommands):$/ {
    part = substr($1, 1, length($1) - 1)
    next
}
/^$/ {
    if (part != "Description")
        part = ""
    next
}
part == "Description" { description[command] = description[command] (description[command] ? " " : "") $0 }
part == "Subcommands" {
    subcommand[++subcommands] = $1
    known[$1] = 1
    summary[subcommands] = Rest($0)
}
part == "Options" || part == "Arguments" {
    if (/^  [^ ]/) {
        n = ++entries[command]
        section[command, n] = part
        name[command, n] = Name($0)
        text[command, n] = Rest($0)
    } else {
        sub(/^ +/, "")
        text[command, n] = text[command, n] " " $0
    }
}

# An entry's name ends where two blanks stand.
function Name(line) { sub(/^  /, "", line); sub(/  .*/, "", line); return line }
function Rest(line) { sub(/^  /, "", line); return match(line, /  +/) ? substr(line, RSTART + RLENGTH) : "" }
