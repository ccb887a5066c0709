"""Where layers lie, so that no result is written over what it is made of."""

import collections
import os
import re

from osgeo import gdal
from qgis.core import (QgsDataSourceUri, QgsProcessingFeatureSourceDefinition, QgsProcessingOutputLayerDefinition,
                       QgsProcessingUtils, QgsProject, QgsProperty, QgsProviderRegistry, QgsVirtualLayerDefinition)
from qgis.PyQt.QtCore import QUrl

from .words import tr

# files: what tells apart the files of a layer; tables: of those in the files, in small letters, or none for the files as a whole;
# path: as people know it.
Place = collections.namedtuple("Place", "files tables path")

# Files that belong together: who writes one of them writes all.
_FAMILIES = ((".shp", ".shx", ".dbf", ".prj", ".cpg", ".qix", ".sbn", ".sbx"), (".tab", ".dat", ".map", ".id", ".ind"), (".mif", ".mid"))


def what_is_mixed_up(algorithm, parameters, context):
    """Why the results cannot be written where they are to go: over a layer that is read, or over each other; None where they can."""
    taken = []
    for parameter in algorithm.parameterDefinitions():
        if parameter.type() == "source":
            taken += _read_places(algorithm, parameters, parameter.name(), context)
    read = len(taken)
    for parameter in algorithm.destinationParameterDefinitions():
        place = _written_place(parameters.get(parameter.name()), context)
        if place is None:
            continue
        for number, other in enumerate(taken):
            if not _meet(place, other):
                continue
            if number < read:
                return tr("'{result}' would be written over a layer from which it is made ({file}). Choose another file.").format(
                    result=parameter.description(), file=place.path)
            return tr("'{result}' and another result would be written to one place ({file}). Choose another file.").format(
                result=parameter.description(), file=place.path)
        taken.append(place)
    return None


def _meet(one, other):
    return bool(one.files & other.files) and not (one.tables and other.tables and one.tables.isdisjoint(other.tables))


def _read_places(algorithm, parameters, name, context):
    value = parameters.get(name)
    if isinstance(value, QgsProcessingFeatureSourceDefinition):
        value = value.source
    layer = algorithm.parameterAsVectorLayer({name: value}, name, context) if value is not None else None
    return _places_of(layer, context, set())


def _places_of(layer, context, seen):
    """Of a layer, and of those of which it is made."""
    if layer is None or layer.id() in seen:
        return []
    seen.add(layer.id())
    places = []
    project = context.project() or QgsProject.instance()
    if layer.providerType() == "virtual":
        made = QgsVirtualLayerDefinition.fromUrl(QUrl.fromEncoded(layer.source().encode()))
        parts = [part for part in made.sourceLayers() if not part.isReferenced()]
        places += [_place_of_source(part.provider(), part.source()) for part in parts]
        named = [project.mapLayer(part.reference()) for part in made.sourceLayers() if part.isReferenced()]
        # A query may name any layer of the project.
        named += [other for other in project.mapLayers().values() if other.name() in made.query() or other.id() in made.query()]
        for other in named:
            places += _places_of(other, context, seen)
    else:
        places.append(_place_of_source(layer.providerType(), layer.source(), layer))
    for join in layer.vectorJoins():
        places += _places_of(join.joinLayer(), context, seen)
    return [place for place in places if place is not None]


def _place_on_server(provider, source):
    """Hosts have many names: two databases of one name are taken for the same."""
    uri = QgsDataSourceUri(source)
    place = f"{uri.database() or uri.service()}: {uri.schema() or 'public'}.{uri.table()}"
    return Place(frozenset([(provider, place.lower())]), frozenset(), place)


def _place_of_source(provider, source, layer=None):
    if provider in ("postgres", "mssql", "oracle", "hana"):
        return _place_on_server(provider, source)
    uri = QgsProviderRegistry.instance().decodeUri(provider, source)
    path, table = uri.get("path"), uri.get("layerName")
    if not path:
        return None
    path = str(path)
    if os.path.isdir(path):
        files = [os.path.join(path, name) for name in os.listdir(path) if not table or os.path.splitext(name)[0] == table]
        return Place(_names([path, *files]), frozenset(), path)
    if path.lower().endswith(".vrt"):
        return Place(_names([path, *_files_behind(path)]), frozenset(), path)
    tables = [table] if table else _tables(layer)
    return Place(_names([path]), frozenset(str(name).lower() for name in tables), path)


def _files_behind(path):
    """Those that a virtual format of GDAL names."""
    try:
        opened = gdal.OpenEx(path, gdal.OF_VECTOR)
    except RuntimeError:  # where somebody has asked GDAL for exceptions
        opened = None
    return (opened.GetFileList() or []) if opened is not None else []


def _tables(layer):
    """Which one of them a layer shows that does not say is not known."""
    provider = layer.dataProvider() if layer is not None else None
    return [row.split(provider.sublayerSeparator())[1] for row in provider.subLayers()] if provider is not None else []


def _written_place(value, context):
    """Where a result goes; None for one that goes to the memory, to a new file, or nowhere."""
    if isinstance(value, QgsProcessingOutputLayerDefinition):
        value = value.sink
    if isinstance(value, QgsProperty):
        value, _ = value.valueAsString(context.expressionContext(), "")
    if not value or not isinstance(value, str) or value.startswith("memory:") or value == "TEMPORARY_OUTPUT":
        return None
    layer = (context.project() or QgsProject.instance()).mapLayer(value)
    if layer is not None:
        return _place_of_source(layer.providerType(), layer.source())
    in_database = re.match(r"(ogr|spatialite|postgis|postgres|mssql|oracle|hana):(.*)", value, re.DOTALL)
    if in_database:
        provider, source = in_database.groups()
        if provider not in ("ogr", "spatialite"):
            return _place_on_server("postgres" if provider == "postgis" else provider, source)
        uri = QgsDataSourceUri(source)
        return Place(_names([uri.database()]), frozenset([uri.table().lower()] if uri.table() else []), uri.database())
    path = value.partition("|")[0]
    # Where the end of the name says nothing to QGIS, it adds one.
    return Place(_names([path, f"{path}.{QgsProcessingUtils.defaultVectorExtension()}"]), frozenset(), path)


def _names(paths):
    """What is the same for two paths of one file, or of files that belong together."""
    names = set()
    for path in paths:
        real = os.path.normcase(os.path.realpath(path))
        stem, end = os.path.splitext(real)
        family = next((family for family in _FAMILIES if end.lower() in family), None)
        names.add((stem, family) if family else real)
        try:
            found = os.stat(path)
        except OSError:
            continue
        names.add((found.st_dev, found.st_ino))
    return frozenset(names)
