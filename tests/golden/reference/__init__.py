"""A second computation of everything that the library exports, one module per family.

Written step by step and independent of the library's sources: plain Python floats are IEEE doubles,
every line rounds once per operation, and the order of the operations is the order of the lines.
Records are tuples; a function that writes through a pointer takes what stood there before and returns
what stands there afterwards, so that "left untouched" is a value like any other.
"""
