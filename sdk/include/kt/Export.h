#pragma once

/// What libktHost.so shows to the outside. Everything else in it is hidden.
#define KT_EXPORT __attribute__((visibility("default")))
