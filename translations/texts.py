#!/usr/bin/env python3
"""Keeps the message catalogues complete.

The German texts stand in the sources and are the keys. This collects them and compares them with
qor_en.ts and qor_zh.ts:

    texts.py --check    lists what a catalogue lacks, or has too much; exit status 1 then
    texts.py --update   adds what is missing as unfinished and drops what is no longer used

In a window every text is taken for shown; in the engine those given to the operator, those that look like a
sentence, and those marked "// shown to the operator". What is none lies in not_shown.txt.
"""
import pathlib
import re
import sys
import xml.etree.ElementTree as ET

ROOT = pathlib.Path(__file__).resolve().parent.parent
CATALOGUES = ("en", "zh")

LITERAL = r'"((?:[^"\\]|\\.)*)"'
LITERALS = re.compile(LITERAL + r'(?:\s*' + LITERAL + r')*')
# Strings, so that a quotation mark in a comment or a stroke in a text misleads nobody; raw ones hold no words.
TOKENS = re.compile(r'(R"(\w*)\(.*?\)\2")|("(?:[^"\\\n]|\\.)*")|(\'(?:[^\'\\\n]|\\.)\')|(//[^\n]*)|(#include[^\n]*)', re.S)
# In a window every text is shown, except what stands in these.
NOT_IN_WINDOW = re.compile(
    r'QStringLiteral\s*\([^()]*\)|DialogEntry \w+\([^()]*\)|m_Commands\.Run\([^()]*\)|FindCommand\([^()]*\)|QLatin1String\s*\([^()]*\)|(?:setObjectName|setProperty|property|SetFlag)\s*\([^()]*\)')
# What shows a text to the operator in the engine.
SHOWN = re.compile(r'\b(?:Message|Failure|Acknowledge|Ask|AskOrCancel|AskOrElse|Tell|[Rr]efused?|DoneWith|failed|FilesToOpen|FileToSave|Folder|Progress|Menu|'
                   r'Shown|Translated)\s*\(')
# Of a command's row: its caption, and what is said when its dialog does not open.
FIELD = re.compile(r'\.(?:caption|noDialog) = (' + LITERAL + r')')
# Tables and constants of texts are marked by this comment on the line above.
MARK = re.compile(r'// shown to the operator[^\n]*\n(.*?);[ \t]*\n', re.S)
# Two words with a stop or a colon are told to somebody.
SENTENCE = re.compile(r'[a-z]+,? +\S*[a-z].*[.!?:]\s*$')
# Result files and reports have a language of their own.
ON_PAPER = re.compile(r'data_file|report')
# No words of a language: numbers, units, names of bands, files and fields.
NO_WORDS = re.compile(r'^(?:[^A-Za-z]*|[@#]\w+|m_\w+|[\w.*]+\.(?:ccz|conf|dat|txt|ini|chm|pdf|html)|\*\..*|dB|dB[mc]|[MG]?Hz|'
                      r'm?W|mV|Ohm|f1:?|f2:?|fIM:?|IM\d*|QOR|COM|Marker|Zo=|[<>|]+|X|R|C)$')


def unescape(text):
    return re.sub(r'\\(.)', lambda m: {'n': '\n', 't': '\t', 'r': '\r'}.get(m.group(1), m.group(1)), text)


def joined(match_text):
    return unescape(''.join(re.findall(LITERAL, match_text)))


def arguments(source, start):
    """Text between the parenthesis at `start` and its partner."""
    depth, i, in_text = 0, start, False
    while i < len(source):
        c = source[i]
        if in_text:
            if c == '\\':
                i += 1
            elif c == '"':
                in_text = False
        elif c == '"':
            in_text = True
        elif c == '(':
            depth += 1
        elif c == ')':
            depth -= 1
            if depth == 0:
                return source[start + 1:i]
        i += 1
    return source[start + 1:]


def keys_of(text):
    """A text's keys: an item without its key of the keyboard, a message by its lines, a part of one without the
    separator in front of it."""
    return [re.sub(r'^[:.] ', '', line.strip()) for line in text.split('\t')[0].split('\n')]


def literals(text):
    return [joined(match.group(0)) for match in LITERALS.finditer(text)]


def texts_of(path):
    kept = lambda m: m.group(0) if m.group(3) or 'shown to the operator' in m.group(0) else ' '
    source = TOKENS.sub(kept, path.read_text())
    if path.parent.name == 'ui':
        return literals(NOT_IN_WINDOW.sub('', source))
    parts = [arguments(source, m.end() - 1) for m in SHOWN.finditer(source)]
    parts += MARK.findall(source) + [m.group(1) for m in FIELD.finditer(source)]
    told = [] if ON_PAPER.match(path.name) else [text for text in literals(source) if SENTENCE.search(text)]
    return told + [text for part in parts for text in literals(part)]


def collect():
    keys = set()
    for path in sorted((ROOT / 'src').rglob('*.[ch]*')):
        if path.suffix in ('.cpp', '.h') and path.relative_to(ROOT / 'src').parts[0] not in ('sim', 'apps', 'platform'):
            keys.update(key for text in texts_of(path) for key in keys_of(text) if not NO_WORDS.match(key))
    return keys - set((ROOT / 'translations' / 'not_shown.txt').read_text().splitlines())


def load(language):
    path = ROOT / 'translations' / f'qor_{language}.ts'
    if not path.exists():
        return {}
    return {m.findtext('source'): m.findtext('translation') or '' for m in ET.parse(path).iter('message')}


def save(language, entries):
    top = ET.Element('TS', version='2.1', language={'en': 'en_US', 'zh': 'zh_CN'}[language])
    context = ET.SubElement(top, 'context')
    ET.SubElement(context, 'name').text = 'qor'
    for source in sorted(entries):
        message = ET.SubElement(context, 'message')
        ET.SubElement(message, 'source').text = source
        translation = ET.SubElement(message, 'translation')
        translation.text = entries[source]
        if not entries[source]:
            translation.set('type', 'unfinished')
    ET.indent(top)
    text = '<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n' + ET.tostring(top, encoding='unicode') + '\n'
    (ROOT / 'translations' / f'qor_{language}.ts').write_text(text)


def main():
    keys = collect()
    status = 0
    for language in CATALOGUES:
        entries = load(language)
        if '--update' in sys.argv:
            save(language, {key: entries.get(key, '') for key in keys})
            continue
        for key in sorted(keys):
            if not entries.get(key):
                print(f'qor_{language}.ts lacks: {key!r}')
                status = 1
        for key in sorted(set(entries) - keys):
            print(f'qor_{language}.ts has no use for: {key!r}')
            status = 1
    return status


sys.exit(main())
