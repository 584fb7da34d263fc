#pragma once

#include <CBox.h>

#include "effect/layers.h"

namespace kv {

/// Where the layers of a picture made to fit lie. The area's corner is its place in the scene, the
/// layers' corners lie within the area; a layer that was not made is all 0.
struct Arrangement {
    CBox area;
    CBox body;
    CBox edge;
    CBox shadow;
};

Arrangement Arrange(const tagKVBWDRAWINFO& info, const Layers& layers);

}  // namespace kv
