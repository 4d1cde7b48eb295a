#!/usr/bin/env python3
"""Compares the keys that the code looks up with the texts of every language.

Keys are found in calls of localized("Table", "key") and localized("key"), and in QT_TRANSLATE_NOOP for keys that
are chosen while the program runs. Usage: check_texts.py <root of the source>
"""

import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

DEFAULT_TABLE = "Default"
TOKEN = re.compile(
    r"""//[^\n]*|/\*.*?\*/
      | R"(?P<mark>\w*)\((?P<raw>.*?)\)(?P=mark)"
      | (?:u8?|L|U)?"(?P<text>(?:\\.|[^"\\])*)"
      | '(?:\\.|[^'\\])*'
      | \d[\w'.]*|\w+|\S""",
    re.VERBOSE | re.DOTALL,
)
ESCAPE = re.compile(r"\\(.)")
ESCAPED = {"n": "\n", "t": "\t"}
PLACEHOLDER = re.compile(r"%(?:\d+|n)")


def tokens_of(source):
    """Code as (is_literal, text) pairs, without comments; neighbouring literals are one."""
    tokens = []
    for match in TOKEN.finditer(source):
        whole = match.group()
        if whole.startswith(("//", "/*")):
            continue
        literal = match.group("raw")
        if literal is None and match.group("text") is not None:
            literal = ESCAPE.sub(lambda m: ESCAPED.get(m.group(1), m.group(1)), match.group("text"))
        if literal is None:
            tokens.append((False, whole))
        elif tokens and tokens[-1][0]:
            tokens[-1] = (True, tokens[-1][1] + literal)
        else:
            tokens.append((True, literal))
    return tokens


def arguments_at(tokens, opening):
    """Of a call's arguments the literals that stand in them openly, so both of "a ? "x" : "y""."""
    arguments, depth = [[]], 0
    for is_literal, text in tokens[opening:]:
        if is_literal:
            if depth == 1:
                arguments[-1].append(text)
        elif text in "([{":
            depth += 1
        elif text in ")]}":
            depth -= 1
            if depth == 0:
                break
        elif text == "," and depth == 1:
            arguments.append([])
    return arguments


def keys_in(source):
    tokens = tokens_of(source)
    for index, token in enumerate(tokens[:-1]):
        if tokens[index + 1] != (False, "("):
            continue
        is_marker = token[1] in ("QT_TRANSLATE_NOOP", "QT_TRANSLATE_N_NOOP", "QT_TRANSLATE_NOOP3")
        if token[0] or not (is_marker or token[1] == "localized"):
            continue
        arguments = arguments_at(tokens, index + 1)
        if len(arguments) == 1:
            yield from ((DEFAULT_TABLE, key) for key in arguments[0])
        elif len(arguments[0]) == 1:
            yield from ((arguments[0][0], key) for key in arguments[1])


def read_texts(file, texts, errors):
    """Adds the file's texts: (table, key) to the list of its forms."""
    for context in ElementTree.parse(file).getroot().iter("context"):
        table = context.findtext("name", "")
        # A table may be spread over several files: Table.ts, Table.part.ts
        if table != file.name.split(".")[0]:
            errors.append(f"{file}: holds the table {table}")
        for message in context.iter("message"):
            key = message.findtext("source", "")
            translation = message.find("translation")
            where = f"{file}: {key!r}"
            if (table, key) in texts:
                errors.append(f"{where} stands twice")
            if translation is None or translation.get("type"):
                errors.append(f"{where} is not finished")
                continue
            is_numerus = message.get("numerus") == "yes"
            forms = [form.text or "" for form in translation.iter("numerusform")] if is_numerus else [translation.text or ""]
            if not forms or any(not form.strip() for form in forms):
                errors.append(f"{where} has an empty text")
            # All languages here have one form for 1 and one for all other numbers.
            if is_numerus and (len(forms) != 2 or "%n" not in forms[-1]):
                errors.append(f"{where} needs two forms, the second one with %n")
            if not is_numerus and "%n" in forms[0]:
                errors.append(f"{where} has %n but no forms for numbers")
            texts[table, key] = forms


def placeholders(forms):
    return sorted({found for form in forms for found in PLACEHOLDER.findall(form)})


def check_forms(root, errors):
    """Texts of forms come from the controllers; one that is left over would stay in one language."""
    for file in sorted((root / "src").rglob("*.ui")):
        for text in ElementTree.parse(file).getroot().iter("string"):
            if (text.text or "").strip() and text.get("notr") != "true":
                errors.append(f"{file}: {text.text!r} is not marked notr")


def main():
    root = pathlib.Path(sys.argv[1])
    errors = []
    used = {}
    for file in sorted((root / "src").rglob("*")):
        if file.suffix in (".h", ".cpp"):
            for key in keys_in(file.read_text(encoding="utf-8")):
                used.setdefault(key, file)
    languages = {}
    for folder in sorted(path for path in (root / "translations").iterdir() if path.is_dir()):
        texts = languages.setdefault(folder.name, {})
        for file in sorted(folder.glob("*.ts")):
            read_texts(file, texts, errors)

    for language, texts in languages.items():
        for table, key in sorted(used.keys() - texts.keys()):
            errors.append(f"{used[table, key]}: {key!r} of table {table} is missing in {language}")
        for table, key in sorted(texts.keys() - used.keys()):
            errors.append(f"{language}: {key!r} of table {table} is used nowhere")
    english = languages.get("en", {})
    for language, texts in languages.items():
        for key in sorted(english.keys() & texts.keys()):
            if placeholders(english[key]) != placeholders(texts[key]):
                errors.append(f"{language}: {key[1]!r} of table {key[0]} has other placeholders than in English")
    if len(languages) < 2 or not used:
        errors.append("no languages or no keys found: is this the root of the source?")
    check_forms(root, errors)

    for error in errors:
        print(error)
    if errors:
        print("If a text and the code that uses it are just being added separately, wait for the other half.")
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
