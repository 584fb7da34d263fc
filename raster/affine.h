#pragma once

#include "raster/path.h"

namespace kv::raster {

/// x' = xx * x + xy * y + dx, y' = yx * x + yy * y + dy.
struct Affine {
    double xx, xy, dx;
    double yx, yy, dy;

    PathPoint operator()(PathPoint point) const {
        return {xx * point.x + xy * point.y + dx, yx * point.x + yy * point.y + dy};
    }

    /// The map that applies `first` and then this one.
    Affine After(const Affine& first) const {
        return {xx * first.xx + xy * first.yx,      xx * first.xy + xy * first.yy,
                xx * first.dx + xy * first.dy + dx, yx * first.xx + yy * first.yx,
                yx * first.xy + yy * first.yy,      yx * first.dx + yy * first.dy + dy};
    }
};

}  // namespace kv::raster
