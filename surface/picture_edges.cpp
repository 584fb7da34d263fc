// The one call from the surface up to the render: a picture gives itself edges by a render of its
// own.

#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>

int CKVFrameBuffer::SetEdge(CKVFrameBuffer* target, tagKVBWDRAWINFO* info, CBox& eria, CBox& body,
                            CBox& edge, CBox& shad) const {
    return CKVBwDraw().SetImgEdgeShadow(target, info, this, eria, body, edge, shad);
}

int CKVFrameBuffer::SetEdgeOrgSize(CKVFrameBuffer* target, tagKVBWDRAWINFO* info) const {
    CBox eria, body, edge, shad;
    return CKVBwDraw().SetFullImgEdgeShadow(target, info, this, eria, body, edge, shad);
}
