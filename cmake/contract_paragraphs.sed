# Filter of the target `docs`: a contract line of a header, "/// Tolerance   PL_EPS, absolute", becomes a paragraph
# with a title. The rest of the paragraph follows as it stands.
s#^( *)/// (Tolerance|Degenerate|Aliasing|Exactness|Source|See also)  +#\1/// @par \2\
\1/// #
