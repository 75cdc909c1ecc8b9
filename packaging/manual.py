#!/usr/bin/env python3
"""Writes the manual pages of the programs and the completions of the command line, all from the programs' own help.

usage: manual.py TAVO TAVOCALENDAR|- VERSION DATE FOLDER

DATE is YYYY-MM-DD. Makes man/*.1.gz, bash/tavo, zsh/_tavo and fish/tavo.fish in the folder.
"""

import gzip
import os
import re
import subprocess
import sys

KINDS = ["alarm", "holiday", "anniversary", "appointment"]
OPTION = re.compile(r"^  (-{1,2}[a-z][a-z-]*)(?:,? (-{2}[a-z-]+))?(?:[ =]([A-Z]+))?(?: {2,}(\S.*))?$")
FILES = {"FILE", "PATH", "FOLDER"}


class Option:
    def __init__(self, name, value, text):
        self.name, self.value, self.text = name, value, text
        self.choices = []


class Command:
    """What the help of one command says, taken apart."""

    def __init__(self, name, help_text):
        lines = help_text.rstrip("\n").split("\n")
        self.name = name
        self.summary = lines[0].split(" - ", 1)[1]
        self.usages = [line.replace("Usage:", "").strip() for line in lines if re.match(r"(Usage:| {7}tavo )", line)]
        self.blocks = self.read_blocks(lines[1:])
        self.options = [block for block in self.blocks if isinstance(block, Option)]
        usage = " ".join(self.usages)
        for option in self.options:
            if option.value == "KIND":
                option.choices = KINDS
            for choices in re.findall(re.escape(option.name) + r" ([a-z]+(?:\|[a-z]+)+)", usage):
                option.choices = choices.split("|")
        # Words that follow the command's name as they are: list, export, on, off.
        self.words = sorted({word for line in self.usages
                             for match in re.findall(rf"^tavo {name} ([a-z|]+)", line) for word in match.split("|")})
        self.takes_files = any(re.search(rf"\b{kind}\b", re.sub(r"--[a-z]+ [A-Z]+", "", usage)) for kind in FILES)

    @staticmethod
    def read_blocks(lines):
        """Paragraphs as texts, options as such, in their order; usages are left out."""
        blocks, paragraph, option = [], [], None

        def close():
            if paragraph:
                blocks.append(" ".join(paragraph))
                paragraph.clear()

        for line in lines:
            match = OPTION.match(line)
            if match:
                close()
                option = Option(match[2] or match[1], match[3] or "", match[4] or "")
                blocks.append(option)
            elif option and re.match(r"^ {6,}\S", line):
                option.text = (option.text + " " + line.strip()).strip()
            elif not line.strip() or re.match(r"(Usage:| {7}tavo )", line):
                close()
                option = None
            elif re.match(r"^  \S", line):
                close()
                option = None
                blocks.append([line.strip()])  # a row of a list, as it stands
            else:
                option = None
                paragraph.append(line.strip())
        close()
        return blocks


def escape(text):
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + text if text.startswith((".", "'")) else text


def mark(text):
    """Commands and options stand out."""
    text = escape(text)
    text = re.sub(r"`([^`]+)`", r"\\fB\1\\fR", text)
    return re.sub(r"(?<![\w\\-])(\\-\\-[a-z]+(?:\\-[a-z]+)*)", r"\\fB\1\\fR", text)


def write_body(blocks):
    out = []
    for block in blocks:
        if isinstance(block, Option):
            value = f" \\fI{block.value}\\fR" if block.value else ""
            out += [".TP", f"\\fB{escape(block.name)}\\fR{value}", mark(block.text)]
        elif isinstance(block, list):
            out += [".PP", ".nf", escape(block[0]), ".fi"]
        elif block.startswith("Exit status: "):
            out += [".SH EXIT STATUS", mark(block[len("Exit status: "):])]
        else:
            out += [".PP", mark(block)]
    return out


def write_page(name, summary, usages, body, see, version, date):
    title = name.upper().replace("-", "\\-")
    out = [f'.TH {title} 1 "{date}" "Tavo Calendar {version}" "User Commands"',
           ".SH NAME", f"{escape(name)} \\- {escape(summary)}", ".SH SYNOPSIS"]
    for number, usage in enumerate(usages):
        out += ([".br"] if number else []) + [escape(usage)]
    out += [".SH DESCRIPTION"] + body
    out += [".SH SEE ALSO", ", ".join(f"\\fB{escape(other)}\\fR(1)" for other in see)]
    return "\n".join(out) + "\n"


def bash_completion(commands):
    names = " ".join(command.name for command in commands)
    out = ["# Completion of the command tavo for bash.", "", "_tavo() {",
           '    local word="${COMP_WORDS[COMP_CWORD]}" before="${COMP_WORDS[COMP_CWORD - 1]}" words="" files=no',
           "    COMPREPLY=()",
           '    if [ "$COMP_CWORD" -eq 1 ]; then',
           f'        words="{names} help --help --version"',
           '    elif [ "${COMP_WORDS[1]}" = help ]; then', f'        words="{names}"', "    else",
           '        case "${COMP_WORDS[1]} $before" in']
    for command in commands:
        for option in command.options:
            if option.choices:
                out += [f'        "{command.name} {option.name}") words="{" ".join(option.choices)}" ;;']
            elif option.value in FILES:
                out += [f'        "{command.name} {option.name}") files=yes ;;']
            elif option.value:
                out += [f'        "{command.name} {option.name}") return ;;']
    out += ["        *)", '            case "${COMP_WORDS[1]}" in']
    for command in commands:
        words = " ".join([option.name for option in command.options] + command.words)
        files = " files=yes" if command.takes_files else ""
        out += [f'            {command.name}) words="{words}"{files} ;;']
    out += ["            esac", "            ;;", "        esac", "    fi",
            '    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")',
            '    if [ "$files" = yes ]; then',
            '        mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -- "$word")',
            "        compopt -o filenames 2>/dev/null", "    fi", "}", "", "complete -F _tavo tavo"]
    return "\n".join(out) + "\n"


def quoted(text):
    return text.replace("'", "'\\''")


def zsh_completion(commands):
    out = ["#compdef tavo", "", "local -a commands", "commands=("]
    out += [f"    '{command.name}:{quoted(command.summary)}'" for command in commands]
    out += ["    'help:explain a command'", ")", "", "if (( CURRENT == 2 )); then",
            "    _describe command commands", "    return", "fi", "", "case ${words[2]} in",
            "help) shift words; (( CURRENT-- )); _describe command commands ;;"]
    for command in commands:
        arguments = []
        for option in command.options:
            text = re.sub(r"[\[\]:]", " ", option.text)
            action = f":{option.value.lower()}:" + (f"({' '.join(option.choices)})" if option.choices
                                                    else "_files" if option.value in FILES else " ")
            arguments.append(f"'{option.name}[{quoted(text)}]{action if option.value else ''}'")
        rest = f"({' '.join(command.words)})" if command.words else ("_files" if command.takes_files else " ")
        arguments.append(f"'*:word:{rest}'")
        out += [f"{command.name})", "    shift words; (( CURRENT-- ))",
                "    _arguments \\", "        " + " \\\n        ".join(arguments), "    ;;"]
    return "\n".join(out + ["esac"]) + "\n"


def fish_completion(commands):
    out = ["# Completion of the command tavo for fish.", "complete -c tavo -f"]
    for command in commands:
        seen = f"__fish_seen_subcommand_from {command.name}"
        out.append(f"complete -c tavo -n __fish_use_subcommand -a {command.name} -d '{quoted(command.summary)}'")
        out.append(f"complete -c tavo -n '__fish_seen_subcommand_from help' -a {command.name}")
        if command.takes_files:
            out.append(f"complete -c tavo -n '{seen}' -F")
        if command.words:
            out.append(f"complete -c tavo -n '{seen}' -a '{' '.join(command.words)}'")
        for option in command.options:
            value = f" -x -a '{' '.join(option.choices)}'" if option.choices else (
                " -r -F" if option.value in FILES else " -x" if option.value else "")
            out.append(f"complete -c tavo -n '{seen}' -l {option.name[2:]}{value} -d '{quoted(option.text)}'")
    out.append("complete -c tavo -n __fish_use_subcommand -a help -d 'explain a command'")
    return "\n".join(out) + "\n"


def main():
    if len(sys.argv) != 6:
        sys.exit(__doc__)
    tavo, window, version, date, folder = sys.argv[1:]

    def ask(*words):
        return subprocess.run(words, check=True, capture_output=True, text=True,
                              env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}).stdout

    general = ask(tavo, "--help")
    listed = general.split("Commands:\n", 1)[1].split("  tavo help", 1)[0]
    names = re.findall(r"^  ([a-z][a-z-]*)", listed, re.MULTILINE)
    commands = [Command(name, ask(tavo, "help", name)) for name in names]
    for kind in ("man", "bash", "zsh", "fish"):
        os.makedirs(os.path.join(folder, kind), exist_ok=True)

    def write_manual(name, text):
        with open(os.path.join(folder, "man", name + ".1.gz"), "wb") as file:
            file.write(gzip.compress(text.encode(), 9, mtime=0))

    pages = ["tavo-" + name for name in names]
    for command in commands:
        see = ["tavo"] + (["tavo-add"] if command.name == "edit" else [])
        write_manual("tavo-" + command.name,
                     write_page("tavo-" + command.name, command.summary, command.usages, write_body(command.blocks), see,
                                version, date))
    body = []
    for command in commands:
        body += [".TP", f"\\fB{escape(command.name)}\\fR", escape(command.summary)]
    tail = Command.read_blocks(("\n" + general.split("shows the version\n", 1)[1]).split("\n"))
    write_manual("tavo", write_page("tavo", "the command line of Tavo Calendar", ["tavo COMMAND [OPTIONS]",
                                                                                 "tavo help COMMAND"],
                                    body + write_body(tail), pages + ["tavocalendar"], version, date))
    if window != "-":
        lines = ask(window, "--help").rstrip("\n").split("\n")
        rows = [re.split(r" {2,}", line.strip(), maxsplit=1) for line in lines if line.startswith("  ")]
        body = [line for usage, text in rows for line in (".TP", f"\\fB{escape(usage)}\\fR", escape(text))]
        rest = [line for line in lines[1:] if line and not line.startswith("  ")]
        write_manual("tavocalendar",
                     write_page("tavocalendar", lines[0].split(": ", 1)[1].rstrip("."),
                                ["tavocalendar [FILE...]", "tavocalendar --new KIND"],
                                body + [line for text in rest for line in (".PP", mark(text))], ["tavo"], version, date))
    for kind, name, text in (("bash", "tavo", bash_completion(commands)), ("zsh", "_tavo", zsh_completion(commands)),
                             ("fish", "tavo.fish", fish_completion(commands))):
        with open(os.path.join(folder, kind, name), "w", encoding="utf-8") as file:
            file.write(text)


if __name__ == "__main__":
    main()
