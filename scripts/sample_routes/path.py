"""Points along a way, and how far they are apart."""

import math
from datetime import datetime
from typing import NamedTuple, Optional

EARTH_RADIUS_KM = 6371.0
KM_PER_DEGREE = math.radians(EARTH_RADIUS_KM)


class Point(NamedTuple):
    latitude: float
    longitude: float
    elevation: Optional[float] = None
    time: Optional[datetime] = None


def distance_km(a, b):
    """Haversine (Sinnott 1984)."""
    half_latitude = math.radians(b.latitude - a.latitude) / 2
    half_longitude = math.radians(b.longitude - a.longitude) / 2
    h = (math.sin(half_latitude) ** 2 + math.cos(math.radians(a.latitude))
         * math.cos(math.radians(b.latitude)) * math.sin(half_longitude) ** 2)
    return 2 * EARTH_RADIUS_KM * math.asin(math.sqrt(h))


def distances_from_start(path):
    result = [0.0]
    for a, b in zip(path, path[1:]):
        result.append(result[-1] + distance_km(a, b))
    return result


def anchors(text):
    """One place a line: latitude, longitude, elevation or "-", then its name."""
    result = []
    for line in text.strip().splitlines():
        latitude, longitude, elevation, _ = line.split(maxsplit=3)
        result.append(Point(float(latitude), float(longitude), None if elevation == '-' else float(elevation)))
    return result
