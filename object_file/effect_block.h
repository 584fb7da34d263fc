#pragma once

#include <cstddef>

#include <KVDrawInfo.h>

// The stored form of an effect record, the same in every object file: its fields in order, and for
// each texture a place for a name pointer that holds zeros and is never read.
namespace kv {

inline constexpr std::size_t kEffectBlockSize = 184;

/// Visits the record's fields in stored order, with Fields one of BlockReader and BlockWriter. The
/// texture names are left as they are.
template <typename Fields>
void VisitEffect(Fields& fields, tagKVBWDRAWINFO& record) {
    for (LONG* field : {&record.AntiScale, &record.Pos_X, &record.Pos_Y, &record.EdgeType_Type,
                        &record.EdgeType_Size, &record.EdgeType_SoftPen, &record.ShadType_Type,
                        &record.ShadType_Size, &record.ShadType_SoftSize, &record.ShadType_SoftPen,
                        &record.BodyMode, &record.EdgeMode, &record.ShadMode}) {
        fields.Field(*field);
    }
    for (DWORD* colour : {&record.BodyCol, &record.EdgeCol, &record.ShadCol}) {
        fields.Field(*colour);
    }
    for (tagGRADINFO* grad : {&record.BodyGrad, &record.EdgeGrad, &record.ShadGrad}) {
        for (LONG* field : {&grad->Mode, &grad->Patern, &grad->x, &grad->y}) {
            fields.Field(*field);
        }
        fields.Field(grad->Col1);
        fields.Field(grad->Col2);
    }
    constexpr std::size_t kNamePlace = 4 + 8;  // padding and a pointer
    for (tagTEXTUREINFO* texture : {&record.BodyText, &record.EdgeText, &record.ShadText}) {
        fields.Field(texture->Mode);
        fields.Skip(kNamePlace);
    }
}

}  // namespace kv
