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
    eria = arranged.area;
    body = arranged.body;
    edge = arranged.edge;
    shad = arranged.shadow;

    fb.DeleteFrameBuffer();
    fb.CreateFrameBuffer(eria.width, eria.height, 1);
    const auto place = [&](const Layer& layer, const CBox& box) {
        if (layer.made) {
            PlaceLayer(info, layer, fb, box.TopLeft(), nullptr);
        }
    };
    place(layers.shadow, arranged.shadow);
    place(layers.edge, arranged.edge);
    place(layers.body, arranged.body);
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
