# Filter of the target `docs`. It makes a paragraph with a title of a contract line in a header, such as
# "/// Tolerance   PL_EPS, absolute". The rest of the paragraph follows unchanged.
s#^( *)/// (Tolerance|Degenerate|Aliasing|Exactness|Source|See also)  +#\1/// @par \2\
\1/// #
