#pragma once

/// Marks what the shared library exports.
#define KVDRAW_API __attribute__((visibility("default")))
