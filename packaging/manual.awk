# The manual page of the command WANTED ("orbel", or "orbel view"), of version VERSION; behind help.awk.

function Roff(words)
{
    gsub(/\\/, "\\e", words)
    gsub(/-/, "\\-", words)
    if (words ~ /^[.']/)
        words = "\\&" words
    return words
}

function Page(ofCommand) { gsub(/ /, "-", ofCommand); return ofCommand }

function Entries(title,   i, open)
{
    for (i = 1; i <= entries[WANTED]; ++i) {
        if (section[WANTED, i] != title)
            continue
        if (!open++)
            print ".SH " toupper(title)
        print ".TP\n.B " Roff(name[WANTED, i])
        print Roff(text[WANTED, i])
    }
}

END {
    about = "XML form definitions as live parameter forms"
    for (i = 1; i <= subcommands; ++i)
        if (WANTED == "orbel " subcommand[i])
            about = summary[i]
    printf ".TH %s 1 \"\" \"OrbelParser %s\" \"User Commands\"\n", toupper(Roff(Page(WANTED))), VERSION
    print ".SH NAME\n" Roff(Page(WANTED)) " \\- " Roff(about)
    print ".SH SYNOPSIS\n.B " Roff(synopsis[WANTED])
    print ".SH DESCRIPTION\n" Roff(description[WANTED])
    if (WANTED == "orbel") {
        print ".SH SUBCOMMANDS"
        for (i = 1; i <= subcommands; ++i)
            print ".TP\n.BR " Roff(Page("orbel " subcommand[i])) " (1)\n" Roff(summary[i])
    }
    Entries("Options")
    Entries("Arguments")
    print ".SH EXIT STATUS\n.TP\n0\nAll is well.\n.TP\n1\nThe input is at fault.\n.TP\n2\nThe command line is."
    if (WANTED != "orbel")
        print ".SH SEE ALSO\n.BR orbel (1)"
}
