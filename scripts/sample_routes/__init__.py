"""The sample routes that scripts/make-samples writes: a module for each, and what they share.

Positions are (latitude, longitude) in decimal degrees, distances and lengths kilometres, speeds km/h, elevations
metres. Longitudes count on beyond 180 while a route is computed.
"""
