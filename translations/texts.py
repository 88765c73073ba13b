#!/usr/bin/env python3
"""Keeps the message catalogues complete.

The German texts stand in the sources and are the keys. This collects them and compares them with
qor_en.ts and qor_zh.ts:

    texts.py --check    lists what a catalogue lacks, or has too much; exit status 1 then
    texts.py --update   adds what is missing as unfinished and drops what is no longer used
"""
import pathlib
import re
import sys
import xml.etree.ElementTree as ET

ROOT = pathlib.Path(__file__).resolve().parent.parent
CATALOGUES = ("en", "zh")

LITERAL = r'"((?:[^"\\]|\\.)*)"'
LITERALS = re.compile(LITERAL + r'(?:\s*' + LITERAL + r')*')
# What shows a text to the operator, in the engine and in the windows.
SHOWN = re.compile(
    r'\b(?:Tr|TrText|Message|Ask|AskOrCancel|Tell|Refuse|Refused|FilesToOpen|FileToSave|Folder|Progress|Menu|Item|'
    r'Check|FormDialog|AddGroup|AddField|AddCheck|AddButtons?|row|check|Shown)\s*\(')
# Tables and constants of texts are marked by this comment on the line above.
MARK = re.compile(r'// shown to the operator[^\n]*\n(.*?);\n', re.S)
# No words of a language: numbers, units, names of files and fields.
NO_WORDS = re.compile(r'^(?:[^A-Za-z]*|m_\w+.*|[\w.*]+\.(?:ccz|conf|dat|txt|ini|chm|pdf|html)|\*\..*|d[Bb][mc]?|MHz|mW|mV|W|f1:?|f2:?|'
                      r'fIM:?|IM\d*|OK|QOR|COM|[<>|]+|X|R|small|cell)$')


def unescape(text):
    return text.replace('\\n', '\n').replace('\\t', '\t').replace('\\"', '"').replace('\\\\', '\\')


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
    """A text's key: an item without its key of the keyboard, a message by its lines."""
    text = text.split('\t')[0]
    return [line.strip() for line in text.split('\n')]


def collect():
    keys = set()
    for path in sorted((ROOT / 'src').rglob('*.[ch]*')):
        if path.suffix not in ('.cpp', '.h') or path.parts[len(ROOT.parts) + 1] in ('sim', 'apps', 'platform'):
            continue
        source = re.sub(r'(?m)^\s*(?:///?|#include).*$',
                        lambda m: m.group(0) if 'shown to the operator' in m.group(0) else '', path.read_text())
        found = [arguments(source, m.end() - 1) for m in SHOWN.finditer(source)]
        found += [m.group(1) for m in MARK.finditer(source)]
        for text in found:
            text = re.sub(r'Q(?:StringLiteral|Latin1String)\(' + LITERAL + r'\)|setObjectName\([^)]*\)', '', text)
            for match in LITERALS.finditer(text):
                for key in keys_of(joined(match.group(0))):
                    if not NO_WORDS.match(key):
                        keys.add(key)
    ignored = (ROOT / 'translations' / 'not_shown.txt').read_text().splitlines()
    return keys - set(ignored)


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
