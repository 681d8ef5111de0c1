#!/usr/bin/env python
def f(x):  # a comment
    """A doc string: 'x' # y."""
    return "a" + 'b' + f"{x}" if x else None
