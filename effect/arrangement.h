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

    /// The area as seen from within.
    CBox Whole() const { return {CPoint(0, 0), area.Size()}; }

    void Report(CBox& eriaOut, CBox& bodyOut, CBox& edgeOut, CBox& shadowOut) const {
        eriaOut = area;
        bodyOut = body;
        edgeOut = edge;
        shadowOut = shadow;
    }
};

Arrangement Arrange(const tagKVBWDRAWINFO& info, const Layers& layers);

/// Replaces fb by a new surface of the window's size (empty when it cannot be had) and stacks the
/// layers in it. The window lies in the arrangement's own coordinates; what is outside is cut.
void StackAnew(CKVFrameBuffer& fb, const tagKVBWDRAWINFO& info, const Layers& layers,
               const Arrangement& arranged, const CBox& window);

}  // namespace kv
