"""Writes GPX."""

from xml.sax.saxutils import escape


def point_xml(point, indent, description=None, element='trkpt', name=None):
    longitude = point.longitude - 360 if point.longitude > 180 else point.longitude
    children = ''
    if point.elevation is not None:
        children += f'<ele>{round(point.elevation)}</ele>'
    if point.time is not None:
        children += f'<time>{point.time:%Y-%m-%dT%H:%M:%SZ}</time>'
    if name is not None:
        children += f'<name>{escape(name)}</name>'
    if description is not None:
        children += f'<desc>{escape(description)}</desc>'
    start = f'{indent}<{element} lat="{point.latitude:.6f}" lon="{longitude:.6f}"'
    return f'{start}>{children}</{element}>' if children else f'{start}/>'


def track_xml(name, description, segments, indent='  ', shape=None, enclaves=(), notes=None):
    """notes: texts of single points, by (segment, index)."""
    inner = indent + '  '
    lines = [f'{indent}<trk>', f'{inner}<name>{escape(name)}</name>', f'{inner}<desc>{escape(description)}</desc>']
    if shape is not None:
        lines.append(f'{inner}<shape>{shape}</shape>')
    for number, segment in enumerate(segments):
        lines.append(f'{inner}<trkseg>')
        for index, point in enumerate(segment):
            lines.append(point_xml(point, inner + '  ', (notes or {}).get((number, index))))
        lines.append(f'{inner}</trkseg>')
    if enclaves:
        lines.append(f'{inner}<enclaves>')
        for enclave in enclaves:
            lines += enclave
        lines.append(f'{inner}</enclaves>')
    return lines + [f'{indent}</trk>']


def gpx(track):
    """The text of a GPX 1.1 file; only <shape> and <enclaves> within a track are our own."""
    lines = ['<?xml version="1.0" encoding="UTF-8"?>',
             '<gpx xmlns="http://www.topografix.com/GPX/1/1" version="1.1" creator="KRGeoLocation">',
             '  <metadata>',
             '    <copyright author="The KRGeoLocation developers">',
             '      <license>https://creativecommons.org/publicdomain/zero/1.0/</license>',
             '    </copyright>',
             '  </metadata>'] + track + ['</gpx>']
    return '\n'.join(lines) + '\n'
