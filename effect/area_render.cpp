#include <CKVBwDraw.h>

#include "effect/arrangement.h"
#include "effect/layers.h"

int CKVBwDraw::SetFb(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo, const CKVMonoBitmap* pMono,
                     CBox& Eria, CBox& Body, CBox& Edge, CBox& Shad) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    kv::Layers layers;
    const int made = kv::MakeLayers(*this, *pInfo, *pMono, layers);
    if (made != 0) {
        return made;
    }
    const kv::Arrangement arranged = kv::Arrange(*pInfo, layers);
    Eria = arranged.area;
    Body = arranged.body;
    Edge = arranged.edge;
    Shad = arranged.shadow;

    pFb->DeleteFrameBuffer();
    pFb->CreateFrameBuffer(Eria.width, Eria.height, 1);
    const auto place = [&](const kv::Layer& layer, const CBox& box) {
        if (layer.made) {
            kv::PlaceLayer(*pInfo, layer, *pFb, box.TopLeft(), nullptr);
        }
    };
    place(layers.shadow, arranged.shadow);
    place(layers.edge, arranged.edge);
    place(layers.body, arranged.body);
    return 0;
}
