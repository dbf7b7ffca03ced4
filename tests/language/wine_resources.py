#!/usr/bin/python3
"""Lists the resources of Windows modules as python3-pefile reads them, and
parses every dialog, menu and string table from the bytes pefile gives,
independently of the module's own reader. One line per resource:

  R|file|type|name|language|size
  D|file|name|language|HEX   (a dialog; HEX is the UTF-16LE of its summary)
  M|file|name|language|HEX   (a menu)
  S|file|name|language|HEX   (a string-table block)
  X|file|type|name|language  (a template that does not parse)

A type or name is its number, or "$" and the hex of its UTF-16LE text."""
import struct
import sys

import pefile

CLASSES = {0x80: 'Button', 0x81: 'Edit', 0x82: 'Static', 0x83: 'ListBox',
           0x84: 'ScrollBar', 0x85: 'ComboBox'}
SEP = '\x01'


def u16(b, o):
    return struct.unpack_from('<H', b, o)[0]


def u32(b, o):
    return struct.unpack_from('<I', b, o)[0]


def sz(b, o):
    units = []
    while True:
        u = u16(b, o)
        o += 2
        if u == 0:
            return ''.join(map(chr, units)), o
        units.append(u)


def sz_or_ord(b, o):
    u = u16(b, o)
    if u == 0:
        return ('', None), o + 2
    if u == 0xFFFF:
        return ('', u16(b, o + 2)), o + 4
    s, o = sz(b, o)
    return (s, None), o


def dialog(b):
    ex = u16(b, 0) == 1 and u16(b, 2) == 0xFFFF
    if ex:
        style = u32(b, 12)
        o = 16
    else:
        style = u32(b, 0)
        o = 8
    count = u16(b, o)
    o += 10
    _, o = sz_or_ord(b, o)
    _, o = sz_or_ord(b, o)
    title, o = sz(b, o)
    if style & 0x40:
        o += 6 if ex else 2
        _, o = sz(b, o)
    parts = ['EX' if ex else 'STD', title, str(count)]
    for _ in range(count):
        o = (o + 3) & ~3
        if ex:
            istyle = u32(b, o + 8)
            iid = u32(b, o + 20)
            o += 24
        else:
            istyle = u32(b, o)
            iid = u16(b, o + 16)
            o += 18
        (cs, cn), o = sz_or_ord(b, o)
        (ts, tn), o = sz_or_ord(b, o)
        o += 2 + u16(b, o)
        if o > len(b):
            raise ValueError('item past the end')
        cls = cs if cn is None else CLASSES.get(cn, '#%d' % cn)
        ttl = ts if tn is None else '#%d' % tn
        parts.append('%s/%s/%d/%x' % (cls, ttl, iid, istyle))
    return SEP.join(parts)


def menu(b):
    version, offset = u16(b, 0), u16(b, 2)
    out = []

    def classic(o, depth):
        while True:
            flags = u16(b, o)
            o += 2
            popup = flags & 0x10
            iid = 0
            if not popup:
                iid = u16(b, o)
                o += 2
            text, o = sz(b, o)
            out.append('%d/%s/%d/%s' % (depth, 'P' if popup else 'I', iid, text))
            if popup:
                o = classic(o, depth + 1)
            if flags & 0x80:
                return o

    def extended(o, depth):
        while True:
            iid, res = u32(b, o + 8), u16(b, o + 12)
            text, o = sz(b, o + 14)
            o = (o + 3) & ~3
            out.append('%d/%s/%d/%s' % (depth, 'P' if res & 1 else 'I', iid, text))
            if res & 1:
                o = extended(o + 4, depth + 1)
            if res & 0x80:
                return o

    if version == 0:
        classic(4 + offset, 0)
    elif version == 1:
        extended(4 + offset, 0)
    else:
        raise ValueError('unknown menu version')
    return ('EX' if version else 'STD') + SEP + SEP.join(out)


def strings(b):
    o = 0
    out = []
    for _ in range(16):
        n = u16(b, o)
        o += 2
        if o + 2 * n > len(b):
            raise ValueError('string past the end')
        out.append(''.join(chr(u16(b, o + 2 * i)) for i in range(n)))
        o += 2 * n
    return SEP.join(out)


def hexed(text):
    return text.encode('utf-16-le', 'surrogatepass').hex()


def label(pe, root_rva, entry):
    if entry.struct.Name & 0x80000000:
        at = root_rva + (entry.struct.Name & 0x7FFFFFFF)
        n = u16(pe.get_data(at, 2), 0)
        return '$' + pe.get_data(at + 2, 2 * n).hex()
    return str(entry.struct.Name & 0xFFFF)


def main():
    for path in sys.argv[1:]:
        name = path.rsplit('/', 1)[-1]
        pe = pefile.PE(path, fast_load=True)
        pe.parse_data_directories(
            directories=[pefile.DIRECTORY_ENTRY['IMAGE_DIRECTORY_ENTRY_RESOURCE']])
        if not hasattr(pe, 'DIRECTORY_ENTRY_RESOURCE'):
            continue
        root = pe.OPTIONAL_HEADER.DATA_DIRECTORY[2].VirtualAddress
        for t in pe.DIRECTORY_ENTRY_RESOURCE.entries:
            tl = label(pe, root, t)
            for n in t.directory.entries:
                nl = label(pe, root, n)
                for lang in n.directory.entries:
                    size = lang.data.struct.Size
                    print('R|%s|%s|%s|%d|%d' % (name, tl, nl, lang.id, size))
                    kind = {'5': ('D', dialog), '4': ('M', menu), '6': ('S', strings)}.get(tl)
                    if not kind:
                        continue
                    data = pe.get_data(lang.data.struct.OffsetToData, size)
                    try:
                        summary = kind[1](data)
                    except (struct.error, ValueError, IndexError):
                        print('X|%s|%s|%s|%d' % (name, tl, nl, lang.id))
                        continue
                    print('%s|%s|%s|%d|%s' % (kind[0], name, nl, lang.id, hexed(summary)))


if __name__ == '__main__':
    main()
