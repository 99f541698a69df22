"""Smooth curves through places, with small seeded meanders, heights and times."""

import math
from bisect import bisect_right
from datetime import timedelta

from .path import KM_PER_DEGREE, Point, distance_km, distances_from_start


def waves(rng, length, parts):
    """A sum of sines f(s), each part (wavelength, amplitude) with a random phase.

    Every wavelength is stretched to fit the length a whole number of times, so f closes on a ring.
    """
    terms = [(2 * math.pi * max(1, round(length / wavelength)) / length, amplitude,
              2 * math.pi * rng.random()) for wavelength, amplitude in parts]
    return lambda s: sum(amplitude * math.sin(k * s + phase) for k, amplitude, phase in terms)


def spline(anchors, step_km, closed=False):
    """Centripetal Catmull-Rom curve (Barry and Goldman 1988) through the anchors.

    Elevations run straight from anchor to anchor, so that they never leave the range given.
    """
    scale = math.cos(math.radians(sum(a.latitude for a in anchors) / len(anchors)))
    plane = [(a.longitude * scale, a.latitude) for a in anchors]
    if closed:
        anchors = anchors + anchors[:1]
        plane = plane[-1:] + plane + plane[:2]
    else:
        def mirrored(end, inner):
            return (2 * end[0] - inner[0], 2 * end[1] - inner[1])
        plane = [mirrored(plane[0], plane[1])] + plane + [mirrored(plane[-1], plane[-2])]

    def blend(p, q, from_t, to_t, t):
        f = (t - from_t) / (to_t - from_t)
        return tuple(u + (v - u) * f for u, v in zip(p, q))

    path = []
    for i, (start, end) in enumerate(zip(anchors, anchors[1:])):
        p0, p1, p2, p3 = plane[i:i + 4]
        t0 = 0.0
        t1 = t0 + math.sqrt(math.dist(p0, p1))
        t2 = t1 + math.sqrt(math.dist(p1, p2))
        t3 = t2 + math.sqrt(math.dist(p2, p3))
        steps = max(2, math.ceil(distance_km(start, end) / step_km))
        for n in range(steps):
            t = t1 + (t2 - t1) * n / steps
            a1, a2, a3 = blend(p0, p1, t0, t1, t), blend(p1, p2, t1, t2, t), blend(p2, p3, t2, t3, t)
            b1, b2 = blend(a1, a2, t0, t2, t), blend(a2, a3, t1, t3, t)
            x, y = blend(b1, b2, t1, t2, t)
            elevation = None
            if start.elevation is not None:
                elevation = start.elevation + (end.elevation - start.elevation) * n / steps
            path.append(Point(y, x / scale, elevation))
    return path + [anchors[-1]]


def meander(rng, path, parts, closed=False):
    """Shifts the path sideways by waves; open paths keep their ends."""
    along = distances_from_start(path)
    length = along[-1]
    offset = waves(rng, length, parts)
    fade_km = max(wavelength for wavelength, _ in parts) / 2
    result = []
    for i, (point, s) in enumerate(zip(path, along)):
        before, after = path[max(0, i - 1)], path[min(len(path) - 1, i + 1)]
        scale = math.cos(math.radians(point.latitude))
        east = (after.longitude - before.longitude) * scale
        north = after.latitude - before.latitude
        shift = offset(s) / KM_PER_DEGREE / math.hypot(east, north)
        if not closed:
            shift *= min(1.0, s / fade_km, (length - s) / fade_km)
        result.append(point._replace(latitude=point.latitude + east * shift,
                                     longitude=point.longitude - north * shift / scale))
    if closed:
        result[-1] = result[0]
    return result


def resample(path, count, ease=0.0):
    """Count points along the path; an ease of up to 1 sets them closer together at both ends."""
    along = distances_from_start(path)
    result = []
    for n in range(count - 1):
        u = n / (count - 1)
        s = along[-1] * (u - ease * math.sin(2 * math.pi * u) / (2 * math.pi))
        i = bisect_right(along, s) - 1
        f = (s - along[i]) / (along[i + 1] - along[i])
        a, b = path[i], path[i + 1]
        elevation = None if a.elevation is None else a.elevation + (b.elevation - a.elevation) * f
        result.append(Point(a.latitude + (b.latitude - a.latitude) * f,
                            a.longitude + (b.longitude - a.longitude) * f, elevation))
    return result + [path[-1]]


def undulate(rng, path, parts):
    """Adds waves to the elevations, which stay above sea level: 0 m stands for unknown."""
    along = distances_from_start(path)
    height = waves(rng, along[-1], parts)
    return [p._replace(elevation=max(1.0, p.elevation + height(s))) for p, s in zip(path, along)]


def travel(rng, path, start, slowest, fastest, variation_km, stage_hours=None):
    """Gives the points times in whole seconds, at a speed that drifts between the two bounds.

    After each stage of stage_hours the journey rests until the start's time of the next day.
    """
    along = distances_from_start(path)
    drift = waves(rng, along[-1], [(variation_km, 0.5), (variation_km / 3.7, 0.3), (variation_km / 9.1, 0.2)])
    result = [path[0]._replace(time=start)]
    stage_start, seconds = start, 0.0
    for i in range(1, len(path)):
        speed = (slowest + fastest) / 2 + (fastest - slowest) / 2 * drift(along[i])
        seconds += (along[i] - along[i - 1]) / speed * 3600
        if stage_hours is not None and seconds > stage_hours * 3600:
            stage_start, seconds = stage_start + timedelta(days=1), 0.0
        result.append(path[i]._replace(time=stage_start + timedelta(seconds=round(seconds))))
    return result


def ring(rng, places, count, parts):
    return resample(meander(rng, spline(places, 0.005, closed=True), parts, closed=True), count)
