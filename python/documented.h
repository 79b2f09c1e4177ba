#pragma once

/// Gives the function `name` of the module that is being made exactly this text as its `__doc__`.
/// Boost.Python puts a line feed before the docstring of each function of its own, so what stands in the
/// module afterwards is a built-in function that hands every call on to it as it comes. Both texts must stay
/// for as long as the library is loaded.
void document(const char* name, const char* text);
