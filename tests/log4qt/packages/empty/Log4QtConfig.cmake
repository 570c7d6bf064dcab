# A package of that name that is something else.
