<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
 <context>
  <name>plcalc</name>
  <message>
   <source>Go on although the CRS stretches lengths here</source>
   <translation>Weitermachen, obwohl das KBS hier Längen verzerrt</translation>
  </message>
  <message>
   <source>Features without heights, in a layer with heights: {count}. Their pieces have none (NaN, not 0).</source>
   <translation>Objekte ohne Höhen in einem Layer mit Höhen: {count}. Ihre Teile haben keine (NaN, nicht 0).</translation>
  </message>
  <message>
   <source>Features with heights, in a layer that says it has none: {count}. Their heights are left out.</source>
   <translation>Objekte mit Höhen in einem Layer, der keine zu haben angibt: {count}. Ihre Höhen fallen weg.</translation>
  </message>
  <message>
   <source>Parcels</source>
   <translation>Grundstücke</translation>
  </message>
  <message>
   <source>The results are in that CRS too.</source>
   <translation>Auch die Ergebnisse sind in diesem KBS.</translation>
  </message>
  <message>
   <source>Cancelled: what is left of the layer has not been looked at, and the results are not complete.</source>
   <translation>Abgebrochen: was vom Layer übrig ist, wurde nicht angesehen, und die Ergebnisse sind nicht vollständig.</translation>
  </message>
  <message>
   <source>Lengths are in {unit}, and areas in squares of it.</source>
   <translation>Längen sind in {unit}, Flächen im Quadrat davon.</translation>
  </message>
  <message>
   <source>Parcels where the CRS stretches lengths, or that may be in degrees: {count}. Their figures are those of the plane, not of the ground.</source>
   <translation>Grundstücke, wo das KBS Längen verzerrt oder die in Grad sein können: {count}. Ihre Zahlen sind die der Ebene, nicht des Bodens.</translation>
  </message>
  <message>
   <source>Features with measures (M), in a layer that says it has none: {count}. Their measures are left out.</source>
   <translation>Objekte mit Messwerten (M) in einem Layer, der keine zu haben angibt: {count}. Ihre Messwerte fallen weg.</translation>
  </message>
  <message>
   <source>Divides each parcel of a layer as asked, with proof.

The line runs parallel to a side, at right angles to one, from a vertex, at a bearing or through a point. The side or the
vertex has a number, is named by a column, or by what it is: the longest, the nearest to a point, the one that faces a
bearing or lies along another layer. Sides are counted from 1: side 1 runs from the first vertex to the second. Those of holes
are numbered on.

The amounts are areas in square units of the CRS, shares of the parcel, equal parts, widths, or a list of them with
semicolons between them. Each can come from a column. Decimals have a point before them.

Pieces: with the columns of their parcel, its id, the piece's number and the number of its amount (the last one is what
is left), the area, what was asked, and the difference. Lines: with length and bearing in gons. Points: the ends of the lines.
Refused: parcels that no such line divides as asked, with the reason and what can be had.

What is answered is proven: each piece holds its amount to a billionth of the parcel, or, with decimals, within the part of
the parcel that is asked for. Vertices keep their heights; along a side heights change evenly.</source>
   <translation>Teilt jedes Grundstück eines Layers wie verlangt, mit Nachweis.

Die Linie verläuft parallel zu einer Seite, rechtwinklig zu ihr, von einer Ecke aus, in einem Richtungswinkel oder durch einen Punkt. Die Seite oder Ecke hat eine Nummer, eine Spalte nennt sie, oder das, was sie ist: die längste, die nächste bei einem Punkt, die in eine Richtung blickt oder an einem anderen Layer liegt. Seiten zählen ab 1: Seite 1 läuft von der ersten Ecke zur zweiten. Die von Löchern zählen weiter.

Verlangt werden Flächen im Quadrat der Einheit des KBS, Anteile am Grundstück, gleiche Teile, Breiten oder eine Liste davon, mit Semikolons dazwischen. Jedes kann aus einer Spalte kommen. Vor Nachkommastellen steht ein Punkt.

Teile: mit den Spalten ihres Grundstücks, seiner Nummer, der Nummer des Teils und der Nummer der Angabe (die letzte ist der Rest), der Fläche, dem Verlangten und dem Unterschied. Linien: mit Länge und Richtungswinkel in Gon. Punkte: die Enden der Linien. Abgelehnt: Grundstücke, die keine solche Linie wie verlangt teilt, mit dem Grund und dem, was zu haben ist.

Was geantwortet wird, ist nachgewiesen: jeder Teil hält das Verlangte auf ein Milliardstel des Grundstücks ein oder, mit Nachkommastellen, innerhalb des verlangten Teils davon. Ecken behalten ihre Höhen; entlang einer Seite ändern sich Höhen gleichmäßig.</translation>
  </message>
  <message>
   <source>Divide parcels</source>
   <translation>Grundstücke teilen</translation>
  </message>
  <message>
   <source>Number of parcels that are divided</source>
   <translation>Anzahl der geteilten Grundstücke</translation>
  </message>
  <message>
   <source>Number of parcels that are refused</source>
   <translation>Anzahl der abgewiesenen Grundstücke</translation>
  </message>
  <message>
   <source>Pieces</source>
   <translation>Teile</translation>
  </message>
  <message>
   <source>Lines</source>
   <translation>Linien</translation>
  </message>
  <message>
   <source>Points</source>
   <translation>Punkte</translation>
  </message>
  <message>
   <source>Refused</source>
   <translation>Abgelehnt</translation>
  </message>
  <message>
   <source>The measures (M) of the vertices are left out.</source>
   <translation>Die Messwerte (M) der Ecken bleiben weg.</translation>
  </message>
  <message>
   <source>{divided} parcels are divided, {refused} are refused.</source>
   <translation>{divided} Grundstücke sind geteilt, {refused} sind abgelehnt.</translation>
  </message>
  <message>
   <source>The first one that is refused, {parcel}: {reason}</source>
   <translation>Das erste, das abgewiesen ist, {parcel}: {reason}</translation>
  </message>
  <message>
   <source>{count} corners of pieces have no height, for a vertex at one of the two ends of their side has none, or they lie inside the parcel.</source>
   <translation>{count} Ecken von Teilen haben keine Höhe, weil eine Ecke an einem der beiden Enden ihrer Seite keine hat oder weil sie im Innern des Grundstücks liegen.</translation>
  </message>
  <message>
   <source>Lists what a line can cut off each parcel: ranges of areas, a row for each.

Every area between least and most can be had. Whether the two themselves can be had stands in columns of their own: where not, a
line that holds just that would touch the boundary on its way.</source>
   <translation>Zählt auf, was eine Linie von jedem Grundstück abtrennen kann: Bereiche von Flächen, eine Zeile für jeden.

Jede Fläche zwischen least und most ist zu haben. Ob die beiden selbst zu haben sind, steht in eigenen Spalten: wo nicht, würde eine Linie, die genau so viel abtrennt, unterwegs die Grenze berühren.</translation>
  </message>
  <message>
   <source>What a line can cut off</source>
   <translation>Was eine Linie abtrennen kann</translation>
  </message>
  <message>
   <source>Ranges</source>
   <translation>Bereiche</translation>
  </message>
  <message>
   <source>Measures each parcel of a layer, holes taken away, and says what is wrong with its boundary.

A boundary that crosses or touches itself has a status that says so, and no area.</source>
   <translation>Misst jedes Grundstück eines Layers, Löcher abgezogen, und sagt, was an seiner Grenze falsch ist.

Eine Grenze, die sich kreuzt oder berührt, hat einen Status, der das sagt, und keine Fläche.</translation>
  </message>
  <message>
   <source>Measure parcels</source>
   <translation>Grundstücke messen</translation>
  </message>
  <message>
   <source>Measured</source>
   <translation>Gemessen</translation>
  </message>
  <message>
   <source>Lists what the instrument shows for each point: the angle from the orientation point, clockwise in gons, and the
distance; with the bearing from North.

The points are as a rule those of Divide parcels. Station and orientation point are given in the CRS of the layer, which
must be plane.</source>
   <translation>Zählt auf, was das Instrument für jeden Punkt zeigt: den Winkel vom Anschlusspunkt aus, im Uhrzeigersinn in Gon, und die Strecke; dazu den Richtungswinkel von Nord.

Die Punkte sind in der Regel die von Grundstücke teilen. Standpunkt und Anschlusspunkt sind im KBS des Layers gegeben, das eben sein muss.</translation>
  </message>
  <message>
   <source>Stake-out list</source>
   <translation>Absteckliste</translation>
  </message>
  <message>
   <source>Station</source>
   <translation>Standpunkt</translation>
  </message>
  <message>
   <source>Orientation point</source>
   <translation>Anschlusspunkt</translation>
  </message>
  <message>
   <source>Stake-out</source>
   <translation>Absteckung</translation>
  </message>
  <message>
   <source>The points are in degrees: reproject them to a plane CRS first.</source>
   <translation>Die Punkte sind in Grad: projizieren Sie sie zuerst in ein ebenes KBS.</translation>
  </message>
  <message>
   <source>Station and orientation point are one and the same.</source>
   <translation>Standpunkt und Anschlusspunkt sind derselbe.</translation>
  </message>
  <message>
   <source>Features without a point, which are not in the list: {count}.</source>
   <translation>Objekte ohne Punkt, die nicht in der Liste sind: {count}.</translation>
  </message>
  <message>
   <source>plcalc is missing. Install the Python package with the Python of QGIS: build the wheel with scripts/python, then python3 -m pip install plcalc-*.whl. Or install the program plcalc, and see that it is on the path. Then start QGIS again.</source>
   <translation>plcalc fehlt. Installieren Sie das Python-Paket mit dem Python von QGIS: scripts/python baut das Wheel, dann python3 -m pip install plcalc-*.whl. Oder installieren Sie das Programm plcalc so, dass es im Suchpfad steht. Starten Sie dann QGIS neu.</translation>
  </message>
  <message>
   <source>Divide parcel</source>
   <translation>Grundstück teilen</translation>
  </message>
  <message>
   <source>The parcel has been changed since it was selected. Select it again.</source>
   <translation>Das Grundstück wurde geändert, seit es gewählt wurde. Wählen Sie es noch einmal.</translation>
  </message>
  <message>
   <source>The layer {name} cannot be edited.</source>
   <translation>Der Layer {name} kann nicht bearbeitet werden.</translation>
  </message>
  <message>
   <source>The layer {name} does not take the change.</source>
   <translation>Der Layer {name} nimmt die Änderung nicht an.</translation>
  </message>
  <message>
   <source>The layer {name} rounds its points to {grid} (its properties, Digitizing), and the new points are not so round. Ask for other decimals, or change that.</source>
   <translation>Der Layer {name} rundet seine Punkte auf {grid} (seine Eigenschaften, Digitalisierung), und die neuen Punkte sind nicht so rund. Verlangen Sie andere Nachkommastellen oder ändern Sie das.</translation>
  </message>
  <message>
   <source>The new points lie beyond the CRS of the layer {name}.</source>
   <translation>Die neuen Punkte liegen außerhalb des KBS des Layers {name}.</translation>
  </message>
  <message>
   <source>Click on a side or a corner.</source>
   <translation>Klicken Sie auf eine Seite oder eine Ecke.</translation>
  </message>
  <message>
   <source>Click on a corner, or on a side.</source>
   <translation>Klicken Sie auf eine Ecke oder eine Seite.</translation>
  </message>
  <message>
   <source>Write the bearing, or click on a side.</source>
   <translation>Schreiben Sie den Richtungswinkel, oder klicken Sie auf eine Seite.</translation>
  </message>
  <message>
   <source>Click on the point.</source>
   <translation>Klicken Sie auf den Punkt.</translation>
  </message>
  <message>
   <source>Divide a parcel</source>
   <translation>Ein Grundstück teilen</translation>
  </message>
  <message>
   <source>Clockwise from North; a click on a side takes its bearing. Of lines through a point, the first one from here on counts.</source>
   <translation>Im Uhrzeigersinn von Norden; ein Klick auf eine Seite übernimmt den ihren. Von Linien durch einen Punkt zählt die erste von hier an.</translation>
  </message>
  <message>
   <source>E, N: write it, or click on it</source>
   <translation>E, N: schreiben oder anklicken</translation>
  </message>
  <message>
   <source>all digits</source>
   <translation>alle Stellen</translation>
  </message>
  <message>
   <source>The part of the parcel by which a piece may miss its amount, because new points are rounded</source>
   <translation>Um diesen Teil des Grundstücks darf ein Teil von dem abweichen, was verlangt ist, weil neue Punkte gerundet werden</translation>
  </message>
  <message>
   <source>What is asked lies on the far side of the line</source>
   <translation>Das Verlangte liegt auf der anderen Seite der Linie</translation>
  </message>
  <message>
   <source>The whole straight line cuts, into however many pieces</source>
   <translation>Die ganze Gerade schneidet, in wie viele Teile auch immer</translation>
  </message>
  <message>
   <source>Divide</source>
   <translation>Teilen</translation>
  </message>
  <message>
   <source>Splits the feature in the edit session of its layer (Enter on the map)</source>
   <translation>Teilt das Objekt in der Bearbeitung seines Layers (Eingabetaste auf der Karte)</translation>
  </message>
  <message>
   <source>The line runs</source>
   <translation>Die Linie verläuft</translation>
  </message>
  <message>
   <source>Bearing</source>
   <translation>Richtungswinkel</translation>
  </message>
  <message>
   <source>The point</source>
   <translation>Der Punkt</translation>
  </message>
  <message>
   <source>What is asked</source>
   <translation>Verlangt ist</translation>
  </message>
  <message>
   <source>how much</source>
   <translation>wie viel</translation>
  </message>
  <message>
   <source>Decimals of new points</source>
   <translation>Nachkommastellen neuer Punkte</translation>
  </message>
  <message>
   <source>Areas may be off by</source>
   <translation>Flächen dürfen abweichen um</translation>
  </message>
  <message>
   <source>New points go to</source>
   <translation>Neue Punkte kommen nach</translation>
  </message>
  <message>
   <source>Click on a parcel.</source>
   <translation>Klicken Sie auf ein Grundstück.</translation>
  </message>
  <message>
   <source>Left</source>
   <translation>Rest</translation>
  </message>
  <message>
   <source>Parcel {name}</source>
   <translation>Grundstück {name}</translation>
  </message>
  <message>
   <source>Line from {start} to {end}</source>
   <translation>Linie von {start} nach {end}</translation>
  </message>
  <message>
   <source>: area {area:.4f}, perimeter {perimeter:.4f}</source>
   <translation>: Fläche {area:.4f}, Umfang {perimeter:.4f}</translation>
  </message>
  <message>
   <source>Piece {number}</source>
   <translation>Teil {number}</translation>
  </message>
  <message>
   <source>{what}: {area:.4f} (asked {asked:.4f})</source>
   <translation>{what}: {area:.4f} (verlangt {asked:.4f})</translation>
  </message>
  <message>
   <source>and {count} more pieces</source>
   <translation>und {count} weitere Teile</translation>
  </message>
  <message>
   <source>, length {length:.3f}</source>
   <translation>, Länge {length:.3f}</translation>
  </message>
  <message>
   <source>, bearing {bearing:.4f} gon</source>
   <translation>, Richtungswinkel {bearing:.4f} gon</translation>
  </message>
  <message>
   <source>The ends have {used} decimals: with {asked} no line holds the areas that closely.</source>
   <translation>Die Enden haben {used} Nachkommastellen: mit {asked} hält keine Linie die Flächen so genau ein.</translation>
  </message>
  <message>
   <source>The CRS stretches lengths here: figures are those of the plane, not of the ground.</source>
   <translation>Das KBS verzerrt hier Längen: Zahlen sind die der Ebene, nicht des Bodens.</translation>
  </message>
  <message>
   <source>The layer of new points has no heights: they are left out there.</source>
   <translation>Der Layer der neuen Punkte hat keine Höhen: dort bleiben sie weg.</translation>
  </message>
  <message>
   <source>The layer has a filter: neighbours that it hides have not got the new points.</source>
   <translation>Der Layer hat einen Filter: Nachbarn, die er verbirgt, haben die neuen Punkte nicht bekommen.</translation>
  </message>
  <message>
   <source>Make a layer of polygons the current one.</source>
   <translation>Wählen Sie einen Layer mit Polygonen als aktuellen Layer.</translation>
  </message>
  <message>
   <source>Divided. New features: {pieces}; neighbours with new points: {neighbours}; points: {points}. Columns that hold areas are not computed anew.</source>
   <translation>Geteilt. Neue Objekte: {pieces}; Nachbarn mit neuen Punkten: {neighbours}; Punkte: {points}. Spalten mit Flächen werden nicht neu berechnet.</translation>
  </message>
  <message>
   <source>New points without a height or a measure: {count}.</source>
   <translation>Neue Punkte ohne Höhe oder Messwert: {count}.</translation>
  </message>
  <message>
   <source>Columns that the layer of new points wants to be filled before it is saved: {columns}.</source>
   <translation>Spalten, die im Layer der neuen Punkte vor dem Speichern auszufüllen sind: {columns}.</translation>
  </message>
  <message>
   <source>New points so near to a neighbour's corner that they were not inserted: {count}.</source>
   <translation>Neue Punkte, die so nahe bei der Ecke eines Nachbarn liegen, dass sie dort nicht eingefügt wurden: {count}.</translation>
  </message>
  <message>
   <source>Boundaries that would meet themselves with the new points, and have not got them: {count}.</source>
   <translation>Grenzen, die sich mit den neuen Punkten selbst träfen und sie nicht bekommen haben: {count}.</translation>
  </message>
  <message>
   <source>Features beside it that are no parcels, and have got no points: {count}.</source>
   <translation>Objekte daneben, die keine Grundstücke sind und keine Punkte bekommen haben: {count}.</translation>
  </message>
  <message>
   <source>Side {number}: length {length:.3f}, bearing {bearing:.4f} gon</source>
   <translation>Seite {number}: Länge {length:.3f}, Richtungswinkel {bearing:.4f} gon</translation>
  </message>
  <message>
   <source>The point cannot be read: write it as E, N.</source>
   <translation>Der Punkt ist nicht lesbar: schreiben Sie ihn als E, N.</translation>
  </message>
  <message>
   <source>Corner {number}: E {x:.3f}, N {y:.3f}</source>
   <translation>Ecke {number}: Ost {x:.3f}, Nord {y:.3f}</translation>
  </message>
  <message>
   <source>A rounded point would take the place of corner {number}, and corners are not moved. That corner has {decimals} decimals: ask for as many, for all digits, or for another amount.</source>
   <translation>Ein gerundeter Punkt käme an die Stelle von Ecke {number}, und Ecken werden nicht verschoben. Diese Ecke hat {decimals} Nachkommastellen: verlangen Sie ebenso viele, alle Stellen oder eine andere Menge.</translation>
  </message>
  <message>
   <source>How much is asked cannot be read: {why}</source>
   <translation>Wie viel verlangt ist, ist nicht lesbar: {why}</translation>
  </message>
  <message>
   <source>several fit equally well: {sides}</source>
   <translation>mehrere passen gleich gut: {sides}</translation>
  </message>
  <message>
   <source>its boundary has arcs: give them corners first, with the algorithm Segmentize</source>
   <translation>seine Grenze hat Bögen: geben Sie ihnen zuerst Ecken, mit dem Algorithmus Segmentieren</translation>
  </message>
  <message>
   <source>there is no geometry</source>
   <translation>es gibt keine Geometrie</translation>
  </message>
  <message>
   <source>it is no polygon</source>
   <translation>es ist kein Polygon</translation>
  </message>
  <message>
   <source>its coordinates look like degrees, and the layer has no CRS that says that they are plane: give it its CRS, or tick that this is meant</source>
   <translation>seine Koordinaten sehen wie Grad aus, und der Layer hat kein KBS, das sagt, dass sie eben sind: geben Sie ihm sein KBS, oder haken Sie an, dass es so gemeint ist</translation>
  </message>
  <message>
   <source>{crs} shows lengths {length:.5f} times as long as they are at this place: use the UTM zone of the place or a local grid, or tick that this is meant</source>
   <translation>{crs} zeigt Längen an diesem Ort {length:.5f}-mal so lang, wie sie sind: nehmen Sie die UTM-Zone des Ortes oder ein örtliches Netz, oder haken Sie an, dass das so gemeint ist</translation>
  </message>
  <message>
   <source>The layer has degrees: it is divided in the project's {crs}.</source>
   <translation>Der Layer hat Grad: geteilt wird im {crs} des Projekts.</translation>
  </message>
  <message>
   <source>The coordinates of {crs} are geocentric, not plane: reproject the layer to the UTM zone of the place.</source>
   <translation>Die Koordinaten von {crs} sind geozentrisch, nicht eben: projizieren Sie den Layer in die UTM-Zone des Ortes.</translation>
  </message>
  <message>
   <source>The coordinates of {crs} increase to the West, not to the East, and bearings would be wrong: reproject the layer.</source>
   <translation>Die Koordinaten von {crs} nehmen nach Westen zu, nicht nach Osten, und Richtungen wären falsch: projizieren Sie den Layer.</translation>
  </message>
  <message>
   <source>The layer's coordinates are degrees ({crs}), in which there are no areas. Give the project a plane CRS, such as the UTM zone of the place, or reproject the layer.</source>
   <translation>Die Koordinaten des Layers sind Grad ({crs}); darin gibt es keine Flächen. Geben Sie dem Projekt ein ebenes KBS, etwa die UTM-Zone des Ortes, oder projizieren Sie den Layer.</translation>
  </message>
  <message>
   <source>its coordinates lie beyond {crs}</source>
   <translation>seine Koordinaten liegen außerhalb von {crs}</translation>
  </message>
  <message>
   <source>'{result}' and another result would be written to one place ({file}). Choose another file.</source>
   <translation>'{result}' und ein weiteres Ergebnis kämen an denselben Ort ({file}). Wählen Sie eine andere Datei.</translation>
  </message>
  <message>
   <source>'{result}' would be written over a layer from which it is made ({file}). Choose another file.</source>
   <translation>'{result}' würde über einen Layer geschrieben, aus dem es entsteht ({file}). Wählen Sie eine andere Datei.</translation>
  </message>
  <message>
   <source>The Python package plcalc is missing: the program of that name is asked. Bearings, and lengths of lines in several parts, have the decimals that it prints.</source>
   <translation>Das Python-Paket plcalc fehlt: das gleichnamige Programm wird gefragt. Richtungswinkel, und Längen von Linien in mehreren Stücken, haben die Nachkommastellen, die es schreibt.</translation>
  </message>
  <message>
   <source>The program plcalc does not list what a line can cut off. Install the Python package plcalc.</source>
   <translation>Das Programm plcalc zählt nicht auf, was eine Linie abtrennen kann. Installieren Sie das Python-Paket plcalc.</translation>
  </message>
  <message>
   <source>The program plcalc gives no bearings of points, and rounds angles. Install the Python package plcalc.</source>
   <translation>Das Programm plcalc nennt keine Richtungswinkel von Punkten und rundet Winkel. Installieren Sie das Python-Paket plcalc.</translation>
  </message>
  <message>
   <source>the program plcalc rounds the ends of lines: say to how many decimals, or install the Python package plcalc for all digits</source>
   <translation>das Programm plcalc rundet die Enden der Linien: sagen Sie, auf wie viele Nachkommastellen, oder installieren Sie für alle Stellen das Python-Paket plcalc</translation>
  </message>
  <message>
   <source>{program} gave no answer that can be read, and ended with status {status}</source>
   <translation>{program} gab keine lesbare Antwort und endete mit Status {status}</translation>
  </message>
  <message>
   <source>the program plcalc looks for lines through a point from North on: leave the bearing at 0, or install the Python package plcalc</source>
   <translation>das Programm plcalc sucht Linien durch einen Punkt von Nord an: lassen Sie den Richtungswinkel bei 0, oder installieren Sie das Python-Paket plcalc</translation>
  </message>
  <message>
   <source>the program plcalc does not tell which points the neighbours get: install a newer one, or the Python package plcalc</source>
   <translation>das Programm plcalc sagt nicht, welche Punkte die Nachbarn bekommen: installieren Sie ein neueres oder das Python-Paket plcalc</translation>
  </message>
  <message>
   <source>parallel to a side</source>
   <translation>parallel zu einer Seite</translation>
  </message>
  <message>
   <source>at right angles to a side</source>
   <translation>rechtwinklig zu einer Seite</translation>
  </message>
  <message>
   <source>from a vertex</source>
   <translation>von einer Ecke aus</translation>
  </message>
  <message>
   <source>at a bearing</source>
   <translation>in einem Richtungswinkel</translation>
  </message>
  <message>
   <source>through a point</source>
   <translation>durch einen Punkt</translation>
  </message>
  <message>
   <source>by its number</source>
   <translation>nach ihrer Nummer</translation>
  </message>
  <message>
   <source>by a column with its number</source>
   <translation>nach einer Spalte mit ihrer Nummer</translation>
  </message>
  <message>
   <source>the longest side</source>
   <translation>die längste Seite</translation>
  </message>
  <message>
   <source>the shortest side</source>
   <translation>die kürzeste Seite</translation>
  </message>
  <message>
   <source>nearest to a point</source>
   <translation>die nächste bei einem Punkt</translation>
  </message>
  <message>
   <source>the side that faces a bearing</source>
   <translation>die Seite, die in eine Richtung blickt</translation>
  </message>
  <message>
   <source>the side along another layer</source>
   <translation>die Seite an einem anderen Layer</translation>
  </message>
  <message>
   <source>area</source>
   <translation>Fläche</translation>
  </message>
  <message>
   <source>share: 1/3 or 25%</source>
   <translation>Anteil: 1/3 oder 25%</translation>
  </message>
  <message>
   <source>equal parts</source>
   <translation>gleiche Teile</translation>
  </message>
  <message>
   <source>width of a strip</source>
   <translation>Breite eines Streifens</translation>
  </message>
  <message>
   <source>a list: 1000; 40x25; w12; 1/3</source>
   <translation>eine Liste: 1000; 40x25; w12; 1/3</translation>
  </message>
  <message>
   <source>The side, or the vertex, is</source>
   <translation>Die Seite oder die Ecke ist</translation>
  </message>
  <message>
   <source>its number, from 1</source>
   <translation>ihre Nummer, ab 1</translation>
  </message>
  <message>
   <source>its column</source>
   <translation>ihre Spalte</translation>
  </message>
  <message>
   <source>the point: nearest to it, or the line runs through it</source>
   <translation>der Punkt: ihm am nächsten, oder die Linie geht hindurch</translation>
  </message>
  <message>
   <source>the bearing, gons from North</source>
   <translation>der Richtungswinkel, Gon von Nord</translation>
  </message>
  <message>
   <source>the other layer: roads, neighbours</source>
   <translation>der andere Layer: Straßen, Nachbarn</translation>
  </message>
  <message>
   <source>which lies no farther away than</source>
   <translation>der nicht weiter entfernt liegt als</translation>
  </message>
  <message>
   <source>or the column that says how much</source>
   <translation>oder die Spalte, die sagt, wie viel</translation>
  </message>
  <message>
   <source>Decimals to which lines are staked out (none: all digits)</source>
   <translation>Nachkommastellen, auf die abgesteckt wird (leer: alle Stellen)</translation>
  </message>
  <message>
   <source>with decimals, a piece may miss this part of the parcel</source>
   <translation>mit Nachkommastellen darf ein Teil um so viel des Grundstücks abweichen</translation>
  </message>
  <message>
   <source>nothing is there</source>
   <translation>es steht nichts da</translation>
  </message>
  <message>
   <source>Say where the point is.</source>
   <translation>Sagen Sie, wo der Punkt ist.</translation>
  </message>
  <message>
   <source>Say which column has the number of the side or the vertex.</source>
   <translation>Sagen Sie, welche Spalte die Nummer der Seite oder Ecke hat.</translation>
  </message>
  <message>
   <source>Say which other layer the side runs along.</source>
   <translation>Sagen Sie, an welchem anderen Layer die Seite liegt.</translation>
  </message>
  <message>
   <source>Say how far away the other layer may lie, as a number above 0.</source>
   <translation>Geben Sie an, wie weit der andere Layer entfernt sein darf: eine Zahl über 0.</translation>
  </message>
  <message>
   <source>The other layer has no lines and no boundaries.</source>
   <translation>Der andere Layer hat keine Linien und keine Grenzen.</translation>
  </message>
  <message>
   <source>there is no side or vertex {number}</source>
   <translation>es gibt keine Seite oder Ecke {number}</translation>
  </message>
  <message>
   <source>sides and vertices are counted from 1, not {number}</source>
   <translation>Seiten und Ecken zählen ab 1, nicht {number}</translation>
  </message>
  <message>
   <source>The layer has no column {column}.</source>
   <translation>Der Layer hat keine Spalte {column}.</translation>
  </message>
  <message>
   <source>its column {column} is empty</source>
   <translation>seine Spalte {column} ist leer</translation>
  </message>
  <message>
   <source>'{text}' is not a number above 0, with a point before the decimals</source>
   <translation>'{text}' ist keine Zahl über 0, mit einem Punkt vor den Nachkommastellen</translation>
  </message>
  <message>
   <source>'{text}' is not a share; write it as 1/3 or 25%</source>
   <translation>'{text}' ist kein Anteil; schreiben Sie 1/3 oder 25%</translation>
  </message>
  <message>
   <source>'{text}' is not less than the whole parcel</source>
   <translation>'{text}' ist nicht weniger als das ganze Grundstück</translation>
  </message>
  <message>
   <source>parts are {least} to {most}</source>
   <translation>Teile sind es {least} bis {most}</translation>
  </message>
  <message>
   <source>A vertex is named by its number, by a column, or as the nearest to a point; '{choice}' names sides.</source>
   <translation>Eine Ecke nennt man nach ihrer Nummer, nach einer Spalte oder als nächste bei einem Punkt; '{choice}' nennt Seiten.</translation>
  </message>
  <message>
   <source>its column {column} has no number: {given}</source>
   <translation>seine Spalte {column} hat keine Zahl: {given}</translation>
  </message>
  <message>
   <source>its column {column} cannot be read: {why}</source>
   <translation>seine Spalte {column} ist nicht lesbar: {why}</translation>
  </message>
 </context>
</TS>
