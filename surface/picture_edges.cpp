// The one call from the surface up to the render: a picture gives itself edges by a render of its
// own.

#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>

int CKVFrameBuffer::SetEdge(CKVFrameBuffer* pDst, tagKVBWDRAWINFO* pInfo, CBox& Eria, CBox& Body,
                            CBox& Edge, CBox& Shad) const {
    return CKVBwDraw().SetImgEdgeShadow(pDst, pInfo, this, Eria, Body, Edge, Shad);
}

int CKVFrameBuffer::SetEdgeOrgSize(CKVFrameBuffer* pDst, tagKVBWDRAWINFO* pInfo) const {
    CBox eria, body, edge, shad;
    return CKVBwDraw().SetFullImgEdgeShadow(pDst, pInfo, this, eria, body, edge, shad);
}
