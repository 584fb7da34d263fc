#include <CKVBwDraw.h>

#include "effect/arrangement.h"
#include "effect/render.h"

namespace kv {

int SetBody(CKVBwDraw& draw, CKVFrameBuffer& fb, tagKVBWDRAWINFO& info, Layers& layers, CBox& eria,
            CBox& body, CBox& edge, CBox& shad) {
    const int made = MakeLayers(draw, info, layers);
    if (made != 0) {
        return made;
    }
    const Arrangement arranged = Arrange(info, layers);
    arranged.Report(eria, body, edge, shad);
    StackAnew(fb, info, layers, arranged, arranged.Whole());
    return 0;
}

}  // namespace kv

int CKVBwDraw::SetFb(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo, const CKVMonoBitmap* pMono,
                     CBox& Eria, CBox& Body, CBox& Edge, CBox& Shad) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    kv::Layers layers;
    const int reduced = MakeAntiGray(pInfo->AntiScale, pMono, &layers.body.coverage);
    return reduced != 0 ? reduced
                        : kv::SetBody(*this, *pFb, *pInfo, layers, Eria, Body, Edge, Shad);
}
