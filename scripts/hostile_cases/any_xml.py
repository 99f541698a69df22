"""XML that is large, deep, oddly declared or oddly encoded, in a file of each kind."""

from typing import NamedTuple

from .registry import add_file
from .snippets import LAUGHS, TRACK
from .writing import numbered


class Kind(NamedTuple):
    suffix: str
    begin: str
    track: str  # two positions, with something around them
    end: str

    def unended(self, *parts):
        return [self.begin, self.track, *parts]

    def inside(self, *parts):
        return [self.begin, self.track, *parts, self.end]

    def declaring(self, declarations, *parts):
        return ['<!DOCTYPE x [', declarations, ']>', self.inside(*parts)]

    def add(self, title, parts, outcome='any'):
        add_file(f'{title}.{self.suffix}', parts, outcome=outcome, plain=self.suffix != 'krroute')

    def add_both(self, title, parts, outcome='any'):
        """As it is, and with a document type, which needs another reader, and yet another if it declares anything."""
        self.add(title, parts, outcome)
        self.add(f'{title}, document type', ['<!DOCTYPE x [<!ENTITY e "a">]>', parts], outcome)


KINDS = (
    Kind('gpx', '<gpx>', TRACK, '</gpx>'),
    Kind('kml', '<kml><Document>', '<Placemark><name>a</name><LineString><coordinates>8,53 9,54</coordinates>'
         '</LineString></Placemark>', '</Document></kml>'),
    Kind('krroute', '<routes><selection><gpxtrack>', '<configuredTrack><trk><name>a</name><trkseg><compressedPoints>'
         '8,53\n9,54</compressedPoints></trkseg></trk></configuredTrack>', '</gpxtrack></selection></routes>'),
)


def markup(kind):
    add_both, inside, unended = kind.add_both, kind.inside, kind.unended
    add_both('attributes 50000', inside('<x ', numbered('a%d="" ', 50000), '/>'))
    add_both('attributes 3000 in 150 tags', inside((['<x ', numbered('a%d="" ', 3000), '/>'], 150)))
    add_both('attributes 200 in 20000 tags', inside((['<x ', numbered('a%d="" ', 200), '/>'], 20000)))
    add_both('namespaces 400 in 240 levels', inside(
        [['<x ', numbered('xmlns:n%d="u" ', 400, level * 400), '>'] for level in range(240)], ('</x>', 240)))
    add_both('tag never closed 200 MB', unended('<', ('a', 200 << 20)), 'refused')
    add_both('tag with blanks never closed 60 MB', unended('<a', (' ', 60 << 20)), 'refused')
    add_both('element name 60 MB', inside('<', ('a', 60 << 20), '/>'))
    add_both('element names long', inside((['<', ('a', 10000), '/>'], 6000)))
    add_both('attribute name 60 MB', inside('<x ', ('a', 60 << 20), '=""/>'))
    add_both('attribute value 60 MB', inside('<x a="', ('a', 60 << 20), '"/>'))
    add_both('attribute value 100 MB', inside('<x a="', ('a', 100 << 20), '"/>'))
    add_both('quotation marks 60 MB', inside('<x a="', ("'", 60 << 20), '"/>'))
    add_both('comment never closed 100 MB', unended('<!--', (' x-', 33 << 20)), 'refused')
    add_both('comment 60 MB', inside('<!--', ('x ', 30 << 20), '-->'))
    add_both('comments 5 million', inside(('<!---->', 5000000)))
    add_both('instruction 60 MB', inside('<?a ', ('x ', 30 << 20), '?>'))
    add_both('instructions 5 million', inside(('<?a b?>', 5000000)))
    add_both('CDATA 60 MB', inside('<x><![CDATA[', (']]', 30 << 20), ']]></x>'))
    add_both('CDATA 5 million', inside('<x>', ('<![CDATA[]]>', 5000000), '</x>'))
    add_both('text 60 MB', inside('<x>', ('a ', 30 << 20), '</x>'))
    add_both('text 60 MB of three bytes', inside('<x>', ('€', 20 << 20), '</x>'))
    add_both('line feeds 60 MB', inside(('\n', 60 << 20)))
    add_both('brackets 60 MB', inside('<x>', (']', 60 << 20), '</x>'))
    add_both('greater-than 60 MB', inside('<x>', ('>', 60 << 20), '</x>'))
    add_both('references 6 million', inside('<x>', ('&#x1F600;', 6000000), '</x>'))
    add_both('references 12 million', inside('<x>', ('&#9;', 12000000), '</x>'))
    add_both('ampersands 10 million', inside('<x>', ('&amp;', 10000000), '</x>'))
    add_both('ampersands 60 MB', inside('<x>', ('&', 60 << 20), '</x>'), 'refused')
    add_both('levels and CDATA never closed', unended(('<x>', 240), '<![CDATA[', (']]', 30 << 20)), 'refused')
    add_both('levels and a comment never closed', unended(('<x>', 240), '<!--', (' x-', 20 << 20)), 'refused')
    add_both('levels 1 million', inside(('<x>', 1000000), ('</x>', 1000000)), 'refused')
    add_both('levels 1 million never closed', unended(('<x>', 1000000)), 'refused')
    add_both('levels 200 many times', inside(('<x>' * 200 + '</x>' * 200, 20000)))
    add_both('elements 10 million', inside(('<x/>', 10000000)))
    add_both('elements 480000', inside(('<x/>', 480000)))
    add_both('elements with texts 240000', inside((['<x>', ('a', 200), '</x>'], 240000)))
    add_both('elements with attributes 240000', inside((['<x a="', ('a', 200), '"/>'], 240000)))


def markup_below_the_limits(kind):
    add_both, inside = kind.add_both, kind.inside
    add_both('below: text', inside('<x>', ('a ', 1200000), ('b' * 100 + ' ', 400000), '</x>'))
    add_both('below: words', inside('<x>', ([('a', 4 << 20), ' '], 11), '</x>'))
    add_both('below: blanks', inside(([(' ', 4 << 20), '<x/>'], 11)))
    add_both('below: CDATA', inside((['<x><![CDATA[', ('a', 4000000), ']]></x>'], 15)))
    add_both('below: comments', inside((['<!--', ('a', 4000000), '-->'], 15)))
    add_both('below: attribute values', inside((['<x a="', ('a', 4000000), '"/>'], 15)))
    add_both('below: attributes', inside('<x ', numbered('a%d="" ', 3000), '/>'))
    add_both('below: tags with 49 attributes', inside((['<x ', numbered('a%d="" ', 49), '/>'], 9900)))
    add_both('below: references', inside((['<x>', ('&lt;', 9000), '</x>'], 110)))
    add_both('below: elements with texts 160000', inside((['<x>', ('a', 280), '</x>'], 160000)))
    add_both('below: elements with attributes 160000', inside((['<x a="', ('a', 280), '"/>'], 160000)))
    add_both('below: levels', inside(('<x>' * 250 + '</x>' * 250, 1900)))


def document_types(kind):
    add, inside, declaring = kind.add, kind.inside, kind.declaring
    entity_of_60_kb = ['<!ENTITY e "', ('a', 60000), '">']
    add('below: declarations', declaring(numbered('<!ENTITY e%d "a">', 1900), ('<x>&e7;</x>', 100000)))
    add('below: entities', declaring(['<!ENTITY e "', ('a', 1000), '">'], '<x>', ('&e;', 8300), '</x>'))
    add('laughs', declaring(LAUGHS, '<x>&l12;</x>'), 'refused')
    add('laughs in an attribute', declaring(LAUGHS, '<x a="&l12;"/>'), 'refused')
    add('laughs in a default', declaring([LAUGHS, '<!ATTLIST x a CDATA "&l12;">'], '<x/>'))
    add('flat entity', declaring(entity_of_60_kb, '<x>', ('&e;', 100000), '</x>'), 'refused')
    add('flat entity in attributes', declaring(entity_of_60_kb, ('<x a="&e;"/>', 100000)), 'refused')
    add('flat default', declaring(['<!ATTLIST x a CDATA "', ('a', 60000), '">'], ('<x/>', 200000)))
    add('two flat entities', declaring(['<!ENTITY e "', ('a', 3000), '"><!ENTITY f "', ('&e;', 3000), '">'],
                                       '<x>', ('&f;', 3000), '</x>'), 'refused')
    add('entities in a ring', declaring('<!ENTITY e "&f;"><!ENTITY f "&e;">', '<x>&e;</x>'))
    add('parameter entities', declaring(
        ['<!ENTITY % p0 "x">', [f'<!ENTITY % p{i + 1} "' + f'%p{i};' * 10 + '">' for i in range(12)], '%p12;']))
    add('entities 500000', declaring(numbered('<!ENTITY e%d "a">', 500000), '<x>&e7;</x>'))
    add('attribute lists 500000', declaring(numbered('<!ATTLIST x a%d CDATA "a">', 500000), ('<x/>', 1000)))
    add('attribute list never closed 60 MB', ['<!DOCTYPE x [<!ATTLIST x ', ('a CDATA "" ', 5500000)], 'refused')
    add('notations 1 million', declaring(numbered('<!NOTATION n%d SYSTEM "a">', 1000000)))
    add('content model of 1 million levels', declaring(['<!ELEMENT x ', ('(', 1000000), 'a', (')', 1000000), '>']))
    add('document type 60 MB of comments', declaring(['<!--', ('x ', 30 << 20), '-->']))
    add('external entity', declaring('<!ENTITY e SYSTEM "/dev/zero">', '<x>&e;</x>'))
    add('external document type', ['<!DOCTYPE x SYSTEM "/dev/zero">', inside()])


def encodings(kind):
    add, inside, unended = kind.add, kind.inside, kind.unended
    begin = '\ufeff' + kind.begin + kind.track
    add('declaration 60 MB', ['<?xml version="1.0" encoding="', ('a', 60 << 20), '"?>', inside()])
    add('byte-order marks 20 million', [('\ufeff', 20000000), inside()])
    add('unknown encoding', ['<?xml version="1.0" encoding="x-none"?>', inside()])
    add('claims UTF-16', ['<?xml version="1.0" encoding="UTF-16"?>', inside(('<x/>', 100000))])
    add('claims UTF-7', ['<?xml version="1.0" encoding="UTF-7"?>', inside(('+ADw-', 100000))])
    add('claims ISO-2022-JP', ['<?xml version="1.0" encoding="ISO-2022-JP"?>',
                               inside('<x>\x1b$B', ('a', 100000), '</x>')])
    for codec in ('utf-16-le', 'utf-16-be', 'utf-32-le', 'utf-32-be'):
        add(f'{codec} 60 MB', [f'{begin}<x>'.encode(codec), ('a '.encode(codec), 7 << 20),
                               f'</x>{kind.end}'.encode(codec)])
        add(f'{codec} elements', [begin.encode(codec), ('<x/>'.encode(codec), 480000), kind.end.encode(codec)])
        add(f'{codec} ends in a character', [begin.encode(codec), b'\x00\xd8\x00'])
    add('surrogates alone', [f'{begin}<x>'.encode('utf-16-le'), (b'\x00\xd8', 1000000),
                             f'</x>{kind.end}'.encode('utf-16-le')])
    add('invalid UTF-8 60 MB', inside('<x>', (b'\xf0\x9f', 30 << 20), '</x>'))
    add('ends in a character', unended('<x>', b'\xe2\x82'), 'refused')


def whole_files(kind):
    add, inside, declaring = kind.add, kind.inside, kind.declaring
    add('text after the end 60 MB', [inside(), ('x', 60 << 20)], 'refused')
    add('roots 1 million', (inside(), 400000), 'refused')
    add('element names 1 million', inside(numbered('<x%d/>', 1000000)))
    add('blanks 1 GB in pieces', inside(([(' ', 1 << 20), '<x/>'], 1000)))
    add('comments 1 GB', inside((['<!--', ('x', 1 << 20), '-->'], 1000)))
    add('comment before all', ['<!--', ('x ', 1 << 20), '-->', inside()], 'read')
    add('content model in UTF-7', ['<?xml version="1.0" encoding="UTF-7"?>+ADwAIQ-DOCTYPE x [+ADwAIQ-ELEMENT x ',
                                   ('(', 1000000), 'a', (')', 1000000), '>]>', inside()], 'refused')
    add('content model in an entity', declaring(
        ['<!ENTITY % p "&#60;!ELEMENT x ', ('(', 1000000), 'a', (')', 1000000), '>">%p;']), 'refused')
    add('NUL 20 million', inside(('\0', 20000000)))
    add('control characters in texts', inside('<x>\x1b[2J\x07</x>'))


for kind in KINDS:
    markup(kind)
    markup_below_the_limits(kind)
    document_types(kind)
    encodings(kind)
    whole_files(kind)
