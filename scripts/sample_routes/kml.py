"""Writes KML. What makes an element returns its lines."""

from xml.sax.saxutils import escape

from .path import Point


def kml_color(rrggbb, alpha=255):
    """KML writes alpha, blue, green, red."""
    return f'{alpha:02x}{rrggbb[4:6]}{rrggbb[2:4]}{rrggbb[0:2]}'


def kml_style(style_id, line, width, fill=None, icon=None):
    lines = [f'<Style id="{style_id}">']
    if icon is not None:
        lines += ['  <IconStyle>', f'    <Icon><href>{icon}</href></Icon>', '  </IconStyle>']
    lines += ['  <LineStyle>', f'    <color>{line}</color>', f'    <width>{width}</width>', '  </LineStyle>']
    if fill is not None:
        lines += ['  <PolyStyle>', f'    <color>{fill}</color>', '  </PolyStyle>']
    return lines + ['</Style>']


def kml_coordinates(path):
    """Longitude first, the elevation only where it is known."""
    lines = ['<coordinates>']
    for point in path:
        elevation = '' if point.elevation is None else f',{round(point.elevation)}'
        lines.append(f'  {point.longitude:.6f},{point.latitude:.6f}{elevation}')
    return lines + ['</coordinates>']


def kml_element(name, *contents):
    """The element around the lines of its contents."""
    return [f'<{name}>', *('  ' + line for content in contents for line in content), f'</{name}>']


def kml_placemark(name, description, style, geometry):
    head = [f'<name>{escape(name)}</name>']
    if description:
        head.append(f'<description>{description}</description>')
    return kml_element('Placemark', head, [f'<styleUrl>#{style}</styleUrl>'], geometry)


def kml_point(name, latitude, longitude, description=''):
    return kml_placemark(name, description, 'ort',
                         kml_element('Point', kml_coordinates([Point(latitude, longitude)])))


def kml_boundary(kind, path):
    return kml_element(kind, kml_element('LinearRing', kml_coordinates(path)))


def kml_folder(name, *contents):
    return kml_element('Folder', [f'<name>{escape(name)}</name>'], *contents)


def kml(name, description, *contents):
    """The text of a KML 2.2 file."""
    document = kml_element(
        'Document', [f'<name>{escape(name)}</name>',
                     '<atom:author><atom:name>The KRGeoLocation developers</atom:name></atom:author>',
                     '<atom:link rel="license" href="https://creativecommons.org/publicdomain/zero/1.0/"/>',
                     f'<description>{escape(description)}</description>'], *contents)
    return '\n'.join(['<?xml version="1.0" encoding="UTF-8"?>',
                      '<kml xmlns="http://www.opengis.net/kml/2.2" xmlns:atom="http://www.w3.org/2005/Atom">',
                      *('  ' + line for line in document), '</kml>', ''])
