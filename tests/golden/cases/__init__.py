"""The operands of the golden vectors, one module per family.

A function under `@cases(name)` yields the operands of the calls of that name: first the rows chosen by
hand, on and beside each constant, then drawn ones at the three sizes of coordinates.
"""
