# Filter of the target `docs` for its pages. It gives every heading of the second level the name under which the pages link to it,
# and which the search finds; leads links with such a name there; links the functions in a row that begins with such a link; and
# leaves the text alone of a link to a file that is not among the pages.
/^## /{
  h
  s/^## +//
  s/.*/\L&/
  s/[^a-z0-9 -]//g
  s/ /-/g
  s/.*/ {#&}/
  x
  G
  s/\n//
}
s#\[([^]]*)\]\((\.\./)*((web|tools/plcalc|qgis|bench)/README|\.\./README|CHANGELOG|CONTRIBUTING|footprint|exact-and-fast|mutation)\.md(\#[^)]*)?\)#\1#g
s#\[([^]]*)\]\((\.\./)*[^)]*\.(cmake|h)\)#\1#g
s#\[([^]]*)\]\([^)#]+\.md\#([^)]*)\)#@ref \2 "\1"#g
s#\[`([^]`]*)`\]\(\##[\1](\##g
s#\]\((\.\./)*qgis/([a-z]+\.png)\)#](\2)#
/^\| \[[^]]*\]\(#/s#`([A-Za-z0-9_:]+)`#@ref \1#g
