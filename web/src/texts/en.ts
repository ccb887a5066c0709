// Every text of the page, in English. Another language is another file like this one, named in index.ts. {0}, {1} are gaps.

export const en = {
    language: 'English',
    title: 'plcalc: divide a parcel',
    tagline: 'Divide a parcel, with proof',
    private: 'Everything is computed on this machine. Nothing is uploaded.',
    undo: 'Undo', redo: 'Redo', zoomIn: 'Zoom in', zoomOut: 'Zoom out', fit: 'Show the whole parcel',
    settings: 'Settings', close: 'Close', languageLabel: 'Language', decimals: 'Decimals of coordinates', angles: 'Angles', unit: 'Unit',
    gon: 'gons', deg: 'degrees', dms: 'degrees, minutes, seconds', metres: 'metres', feet: 'feet', noUnit: 'no unit',
    snap: 'A dragged line snaps to round areas',
    map: 'Drawing of the parcel. Left and right arrow keys choose a side, up and down move the line, plus and minus zoom, 0 shows the whole parcel.',
    skip: 'Skip to the questions',

    parcel: 'Parcel', open: 'Open a file', paste: 'Paste', examples: 'Examples', dropHere: 'Drop the file here',
    formats: 'Or drop GeoJSON, WKT, KML, CSV, DXF, Shapefile (zip)',
    pasteHere: 'GeoJSON, WKT, KML or a table of coordinates', take: 'Use this text', pickParcel: 'Which parcel',
    parcelNumber: 'Parcel {0}', corners: '{0} corners', area: 'Area', perimeter: 'Perimeter', holes: 'holes: {0}', hole: 'hole {0}',
    exampleField: 'Field', exampleYard: 'L-shaped', exampleConvex: 'Polygon', exampleUtm: 'Lots',

    line: 'Line', parallel: 'Parallel', perpendicular: 'Right angle', vertex: 'From a corner',
    bearing: 'At a bearing', place: 'From a side', point: 'Through point',
    side: 'Side', corner: 'Corner', sideName: '{0} – {1}: {2}, {3}', sideShort: '{0} – {1}', cornerName: 'Corner {0}',
    bearingLabel: 'Bearing', along: 'Distance from {0}', east: 'E', north: 'N',
    hintParallel: 'Click a side of the parcel.', hintVertex: 'Click a corner of the parcel.', hintPlace: 'Click the place on a side.',
    hintPoint: 'Click a point inside the parcel.', hintBearing: 'Type a bearing, clockwise from North.',
    otherSide: 'Swap sides', otherLine: 'Another line', whole: 'Whole line, into any number of pieces',

    amount: 'How much', modeArea: 'Area', modeShare: 'Share', modeParts: 'Parts', modeWidth: 'Width', modeList: 'List',
    typeArea: 'Area to cut off', typeShareLabel: 'Share of the parcel, as 1/3 or 25 %', typePartsLabel: 'Equal parts', typeWidthLabel: 'Width of the strip',
    typeListLabel: 'Several, one after another: 1000, 1/4, 20x35', slider: 'Share to cut off', dragHint: 'Or drag the line in the drawing.',
    typeNumber: 'Type a number.', ambiguousComma: 'Is the comma a decimal one? Write 1250 or 1.250.', typeShare: 'Type a share, as 1/3 or 25 %.',
    typeParts: 'Type a whole number from 2 to 1000.', typeList: 'Type amounts with commas between them, as 1000, 1/4, 20x35.',

    result: 'Result', proven: 'Proven', provenLong: 'Every piece holds its area, with the line as it is staked out: {0} decimals.',
    provenExact: 'Every piece holds its area to a billionth of the parcel.',
    moreDecimals: '{0} decimals were not enough to hold the areas; the line has {1}.',
    meetsAgain: 'Prolonged, the line would meet the parcel again.',
    refused: 'There is no such line', refusedBoundary: 'This boundary cannot be used', canHave: 'What can be had: {0}', rangeTo: '{0} to {1}', or: ' or ',
    sidesMeet: 'Sides {0} and {1} meet.', inAmount: 'Amount {0}: ',
    piece: 'Piece', share: 'Share', rest: 'rest', sum: 'Parcel', cutLine: 'Line', length: 'Length', newPoint: 'Point', pieces: 'Pieces', lines: 'Dividing lines', points: 'New points',
    off: 'off by {0}', asked: 'Asked',

    save: 'Save', geojson: 'GeoJSON', csv: 'Points (CSV)', dxf: 'DXF', svg: 'Plan (SVG)', pdf: 'Plan (PDF)', png: 'Plan (PNG)', print: 'Print the plan', link: 'Copy link',
    linkCopied: 'The link shows this division to everyone who opens this page.', linkTooLong: 'The parcel is too large for a link. Save it as GeoJSON.', saved: 'Saved: {0}',
    scale: 'Scale 1:{0} on A4', sheetMetres: 'coordinates taken as metres', plan: 'Plan', morePoints: '{0} more points: see the list of points', morePieces: '{0} more pieces: see the GeoJSON',
    cutSentence: 'Cut {0}: {1}', cutParallel: 'parallel to side {0}', cutPerpendicular: 'at right angles to side {0}', cutVertex: 'from corner {0}',
    cutBearing: 'at the bearing {0}', cutPlace: 'from a place on side {0}', cutPoint: 'through the point {0} {1}', partsText: '{0} equal parts', widthText: 'width {0}',

    degrees: 'Degrees, projected to UTM zone {0} (WGS 84, {1}). Save coordinates in this projection, not in degrees.',
    crs: 'Coordinates in {0}, taken as plane.', noCrs: 'No coordinate system given; taken as plane.', xEast: 'Columns X and Y: X is taken as East. If X is North, rename them N and E.',
    leftOut: 'Left out, being no closed areas: {0}.', arcs: 'Left out, having arcs for sides: {0}.', cannotOpen: 'This cannot be opened',
    notFinite: 'A coordinate is not a number.', brokenGeoJson: 'The GeoJSON cannot be read.', brokenKml: 'The KML cannot be read.', brokenWkt: 'The WKT "{0}" cannot be read.', brokenDxf: 'The DXF cannot be read.',
    brokenZip: 'The zip cannot be unpacked.', brokenShapefile: 'The Shapefile cannot be read.', noShapefile: 'The zip holds no Shapefile (.shp).', badDegrees: 'These degrees cannot be longitudes and latitudes between 84° South and North.',
    noColumns: 'The table needs a column WKT, or a vertex per row in columns E and N (or Easting and Northing, Rechtswert and Hochwert, X and Y).', badNumber: 'Row {0}: "{1}" is not a number. Use a point before the decimals.',
    parcelComesBack: 'The rows of parcel {0} do not follow one another.', tooLarge: 'This file has {0} MB. The page reads up to {1} MB; the program plcalc reads more.',
    geoPackage: 'The page cannot read GeoPackage. The program plcalc can; or export it as GeoJSON.', bareShapefile: 'A Shapefile consists of several files. Zip them and drop the zip.',
    empty: 'There is nothing in it.', unknownFormat: 'The format is not known. The page reads GeoJSON, WKT, KML, CSV, DXF and zipped Shapefiles.', noParcel: 'There is no closed area in it.',
    tooManyParcels: 'There are {0} parcels in it. The page holds up to {1}; the program plcalc divides any number.', tooManyVertices: 'There are {0} corners in it. The page holds up to {1}; the program plcalc divides any number.',
    memory: 'The parcel needs more memory than the browser gives.', noScript: 'This page computes on your machine and needs JavaScript for it.',
    selectedSide: 'Side {0} chosen.', announceDivided: 'Divided. {0}', announceRefused: 'Refused. {0}',
};

export type Texts = { readonly [key in keyof typeof en]: string } & { readonly reasons?: Readonly<Record<string, string>> };
