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

    /// Gives each box to the interface's own.
    void CopyTo(CBox& areaOut, CBox& bodyOut, CBox& edgeOut, CBox& shadowOut) const {
        areaOut = area;
        bodyOut = body;
        edgeOut = edge;
        shadowOut = shadow;
    }
};

/// The arrangement of layers whose body's corner lies at the given point of the scene.
Arrangement Arrange(const Layers& layers, CPoint bodyCorner);

}  // namespace kv
