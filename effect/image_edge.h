#pragma once

#include <CBox.h>
#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>
#include <KVDrawInfo.h>

// Edge and shadow around what a picture's keys show.
namespace kv {

/// Copies a picture's keys: CKVBwDraw::KeyToGray. False when memory runs out.
bool KeysToCoverage(const CKVFrameBuffer& picture, CKVGrayBitmap& coverage);

enum class PictureSize { kToFit, kOfSource };

/// CKVBwDraw::SetImgEdgeShadow and, in the source's size, SetFullImgEdgeShadow.
void SetImage(CKVFrameBuffer& fb, tagKVBWDRAWINFO& info, const CKVFrameBuffer& source,
              PictureSize size, CBox& eria, CBox& body, CBox& edge, CBox& shad);

}  // namespace kv
