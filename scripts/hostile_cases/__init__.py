"""The files that scripts/hostile attacks krrender with: a module for each kind of file."""

# In the order in which they are listed and tried. Other options come after the cases whose files they use.
from . import not_files, any_xml, gpx, kml, kmz, route_documents, pictures, maps  # noqa: F401
from . import looks, other_options, names  # noqa: F401
from .registry import CASES  # noqa: F401
