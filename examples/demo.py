"""A first look at velmar_link: the library version and the protocol it speaks."""

import velmar_link

print(f"velmar_link {velmar_link.__version__}")
