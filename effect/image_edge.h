#pragma once

#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>

#include "base/outcome.h"
#include "effect/layers.h"

// A picture as the body of a render: edge and shadow go around what its keys show.
namespace kv {

/// Makes the coverage the picture's keys, replacing what it held. An empty picture leaves it empty
/// and is no failure.
Outcome TakeKeys(const CKVFrameBuffer& picture, CKVGrayBitmap& coverage);

/// Makes the picture a body, with its keys as coverage. What memory does not suffice for is left
/// empty. All of the picture is taken here, so that it may be the target as well.
void TakePicture(const CKVFrameBuffer& source, Layer& body);

}  // namespace kv
