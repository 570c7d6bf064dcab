// Nothing but the precompiled headers that the tests share.
