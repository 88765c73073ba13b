#!/usr/bin/env python3
"""The rooms of the engine stand in one order, and no include points up.

    layers.py [SOURCES]    names each arrow that does; exit status 1 then

What belongs to no room of the engine - windows, painting, the programs - stands above it and is held off by the
include directories of cmake/layers.cmake.
"""
import pathlib
import re
import sys

ROOMS = ['base', 'bands', 'curve', 'link', 'receivers', 'measure', 'results', 'service', 'tools', 'desk']
# Rooms beside the engine, and what they may see.
BESIDE = {'sim': {'base', 'platform', 'sim'}, 'platform': {'base', 'platform'}}
ABOVE_THE_ENGINE = {'ui', 'paint', 'qt', 'alsa', 'print', 'xlsx'}
# The engine has one thread and no toolkit.
FORBIDDEN = re.compile(r'thread|mutex|atomic|future|condition_variable|Q[A-Z].*|.*/Q[A-Z].*')
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^">]+)[">]', re.M)

# Arrows that still point up, "file header"; none is added.
KNOWN = set('''
'''.split('\n')) - {''}


def arrow(room, folders, header):
    """What is wrong with a header for a file of `room`, or nothing."""
    target = header.split('/')[0]
    if room in BESIDE:
        engine_side = not ABOVE_THE_ENGINE & set(folders)
        if target in ROOMS + list(BESIDE) and target not in BESIDE[room]:
            return 'does not belong to what it may see'
        return 'one thread and no toolkit' if engine_side and room == 'sim' and FORBIDDEN.fullmatch(header) else None
    if FORBIDDEN.fullmatch(header):
        return 'one thread and no toolkit'
    if target in ROOMS and ROOMS.index(target) > ROOMS.index(room):
        return 'points up'
    if target == 'sim' or ABOVE_THE_ENGINE & set(header.split('/')[:-1]):
        return 'stands above the engine'
    return None


def main():
    source = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).resolve().parent.parent / 'src')
    found = {}
    for path in sorted(source.rglob('*.[ch]*')):
        name = path.relative_to(source)
        room, folders = name.parts[0], name.parts[1:-1]
        if room not in ROOMS + list(BESIDE) or (room in ROOMS and ABOVE_THE_ENGINE & set(folders)):
            continue
        for header in INCLUDE.findall(path.read_text()):
            if why := arrow(room, folders, header):
                found[f'{name} {header}'] = why
    for line, why in sorted(found.items()):
        if line not in KNOWN:
            print(f'{line}: {why}')
    for line in sorted(KNOWN - set(found)):
        print(f'{line}: is gone, take it off the list')
    return 1 if set(found) - KNOWN else 0


if __name__ == '__main__':
    sys.exit(main())
