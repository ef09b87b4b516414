#!/usr/bin/python3
"""completion.py bash|zsh PROGRAM: prints the completion file of a program, made from what its --help says."""
import os
import re
import subprocess
import sys
from dataclasses import dataclass

OPTION = re.compile(r"^  (-\S+)(?: (\S.*?))?(?:  +(\S.*))?$")
VALUES = re.compile(r"^[\w-]+(?:\|[\w-]+)+$")  # as FORMAT: jsonl|text
ONE_OF = re.compile(r"\bone of ([\w-]+(?:, [\w-]+)+)")


@dataclass
class Option:
    names: list
    value: str  # what the help calls it; empty: the option takes none
    meaning: str = ""

    def choices(self):
        if VALUES.match(self.value):
            return self.value.split("|")
        listed = ONE_OF.search(self.meaning)
        return listed.group(1).split(", ") if listed else []

    def takes_file(self):
        return "FILE" in self.value


@dataclass
class Program:
    name: str
    options: list
    takes_files: bool
    commands: list


def help_of(path):
    return subprocess.run([path, "--help"], capture_output=True, text=True, check=True).stdout


def read(path):
    options, positionals, commands, section = [], [], [], ""
    for line in help_of(path).splitlines():
        if line.endswith(":") and not line.startswith(" "):
            section = line
        elif section == "Positionals:" and re.match(r"^  \S", line):
            positionals.append(line)
        elif section.startswith("Commands") and (found := re.match(r"^  (\S+)", line)):
            commands.append(found.group(1))
        elif section == "Options:" and (found := OPTION.match(line)):
            names, value, meaning = found.groups(default="")
            value = re.sub(r"\b(Excludes|Needs): .*|\bREQUIRED\b", "", value).strip()
            options.append(Option(names.split(","), value, meaning))
        elif section == "Options:" and options and line.startswith("      ") and not options[-1].meaning:
            options[-1].meaning = line.strip()
    return Program(os.path.basename(path), options, bool(positionals), commands)


def bash(program):
    function = "_" + program.name.replace("-", "_")
    cases = []
    for option in program.options:
        if option.choices():
            reply = f'COMPREPLY=($(compgen -W "{" ".join(option.choices())}" -- "$word"))'
        elif option.takes_file():
            reply = 'mapfile -t COMPREPLY < <(compgen -f -- "$word")'
        else:
            reply = "COMPREPLY=()"
        if option.value:
            cases.append(f"    {'|'.join(option.names)}) {reply}; return ;;")
    words = " ".join(name for option in program.options for name in option.names)
    files = '  else\n    mapfile -t COMPREPLY < <(compgen -f -- "$word")\n' if program.takes_files else ""
    if program.commands:
        files = f'  else\n    COMPREPLY=($(compgen -W "{" ".join(program.commands)}" -- "$word"))\n'
    return "\n".join([
        f"# bash completion for {program.name}", f"{function}() {{",
        '  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}', "  case $previous in", *cases,
        "  esac", '  if [[ $word == -* ]]; then', f'    COMPREPLY=($(compgen -W "{words}" -- "$word"))',
        f"{files}  fi", "}", f"complete -o filenames -F {function} {program.name}", ""])


def zsh(program):
    def quoted(text):
        return re.sub(r"([\[\]:'\\])", r"\\\1", text).replace("\\'", "’")

    lines = []
    for option in program.options:
        name = option.names[0] if len(option.names) == 1 else "{" + ",".join(option.names) + "}"
        exclusive = "" if len(option.names) == 1 else f"'({' '.join(option.names)})'"
        action = f"({' '.join(option.choices())})" if option.choices() else "_files" if option.takes_file() else ""
        value = f":{quoted(re.sub(r'[^A-Za-z].*', '', option.value)).lower() or 'value'}:{action}" if option.value else ""
        meaning = quoted(re.sub(r";? *\bone of .*", "", option.meaning))
        repeated = "'*'" if "may be repeated" in option.meaning else exclusive
        lines.append(f"  {repeated}{name}'[{meaning}]{value}'")
    if program.takes_files:
        lines.append("  '*:file:_files'")
    if program.commands:
        lines.append(f"  '1:command:({' '.join(program.commands)})'")
    return "\n".join([f"#compdef {program.name}", "_arguments \\", " \\\n".join(lines), ""])


def main():
    shell, path = sys.argv[1:]
    sys.stdout.write({"bash": bash, "zsh": zsh}[shell](read(path)))


if __name__ == "__main__":
    main()
