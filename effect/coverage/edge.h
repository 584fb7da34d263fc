#pragma once

#include <CKVGrayBitmap.h>

// Edges around a coverage. The target's origin lies radius pixels left of and above the source's.
// All give false when memory runs out.
namespace kv {

/// Makes the target the source's edge, hard for type 0, else soft. False with the target unchanged
/// for a radius below 1 and an empty source.
bool MakeEdge(int type, int radius, const CKVGrayBitmap& source, CKVGrayBitmap& target);

/// Each keeps in the target what is greater. False with the target unchanged for a negative radius,
/// and when it has not room for 2 * radius more columns and rows than the source has.
bool AddHardEdge(int radius, const CKVGrayBitmap& source, CKVGrayBitmap& target);
bool AddSoftEdge(int radius, const CKVGrayBitmap& source, CKVGrayBitmap& target);

}  // namespace kv
