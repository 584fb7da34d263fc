#pragma once

#include "KVDrawInfo.h"
#include "KVScale.h"

/// The effect properties of whatever holds an effect record: scale, edge and shadow form, and the
/// paint of body, edge and shadow. Colours are 0xKKRRGGBB with a straight key K, lengths are final
/// pixels. Setters store what they are given; only the scale is snapped.
///
/// Holder derives from this class and gives `tagKVBWDRAWINFO& EffectRecord()` and its const form.
/// The pointers of the group readers must not be null.
template <typename Holder>
class KVEffectAccess {
  public:
    /// Snaps to 1, 4, 8 or 16, upwards (above 8 always 16).
    void SetAntiScale(LONG scale) { Record().AntiScale = kv::SnapAntiScale(scale); }
    LONG GetAntiScale() const { return Record().AntiScale; }

    /// Type: a kv::EdgeType. Size: radius, 0 and below for none. The edge's paint stays.
    void SetEdgeType(LONG type, LONG size, LONG softPen) {
        Record().EdgeType_Type = type;
        Record().EdgeType_Size = size;
        Record().EdgeType_SoftPen = softPen;
    }
    void GetEdgeType(LONG* type, LONG* size, LONG* softPen) const {
        *type = Record().EdgeType_Type;
        *size = Record().EdgeType_Size;
        *softPen = Record().EdgeType_SoftPen;
    }
    LONG GetEdgeType_Type() const { return Record().EdgeType_Type; }
    LONG GetEdgeType_Size() const { return Record().EdgeType_Size; }
    LONG GetEdgeType_SoftPen() const { return Record().EdgeType_SoftPen; }

    /// Type: a kv::ShadowType. Size: signed diagonal distance, 0 for none. SoftSize: radius of
    /// the soft form. A non-zero SoftPen sends every layer through its coverage. The paint stays.
    void SetShadType(LONG type, LONG size, LONG softSize, LONG softPen) {
        Record().ShadType_Type = type;
        Record().ShadType_Size = size;
        Record().ShadType_SoftSize = softSize;
        Record().ShadType_SoftPen = softPen;
    }
    void GetShadType(LONG* type, LONG* size, LONG* softSize, LONG* softPen) const {
        *type = Record().ShadType_Type;
        *size = Record().ShadType_Size;
        *softSize = Record().ShadType_SoftSize;
        *softPen = Record().ShadType_SoftPen;
    }
    LONG GetShadType_Type() const { return Record().ShadType_Type; }
    LONG GetShadType_Size() const { return Record().ShadType_Size; }
    LONG GetShadType_SoftSize() const { return Record().ShadType_SoftSize; }
    LONG GetShadType_SoftPen() const { return Record().ShadType_SoftPen; }

    /// Paint of the body, a kv::PaintKind.
    LONG GetBodyMode() const { return Record().BodyMode; }
    /// Sets the colour and selects it as paint.
    void SetBodyCol(DWORD colour) {
        Record().BodyCol = colour;
        Record().BodyMode = kv::kColourPaint;
    }
    DWORD GetBodyCol() const { return Record().BodyCol; }
    /// Sets the gradient and selects it as paint: mode is stored and has no effect, patern is that
    /// of tagGRADINFO, (x, y) its centre within the layer, col1 the far end, col2 the start.
    void SetBodyGrad(LONG mode, LONG patern, LONG x, LONG y, DWORD col1, DWORD col2) {
        Record().BodyGrad = {mode, patern, x, y, col1, col2};
        Record().BodyMode = kv::kGradientPaint;
    }
    void GetBodyGrad(LONG* mode, LONG* patern, LONG* x, LONG* y, DWORD* col1, DWORD* col2) const {
        ReadGrad(Record().BodyGrad, mode, patern, x, y, col1, col2);
    }
    LONG GetBodyGrad_Mode() const { return Record().BodyGrad.Mode; }
    LONG GetBodyGrad_Patern() const { return Record().BodyGrad.Patern; }
    LONG GetBodyGrad_x() const { return Record().BodyGrad.x; }
    LONG GetBodyGrad_y() const { return Record().BodyGrad.y; }
    DWORD GetBodyGrad_Col1() const { return Record().BodyGrad.Col1; }
    DWORD GetBodyGrad_Col2() const { return Record().BodyGrad.Col2; }
    LONG GetBodyText_Mode() const { return Record().BodyText.Mode; }

    /// Paint of the edge, a kv::PaintKind.
    LONG GetEdgeMode() const { return Record().EdgeMode; }
    /// Sets the colour and selects it as paint.
    void SetEdgeCol(DWORD colour) {
        Record().EdgeCol = colour;
        Record().EdgeMode = kv::kColourPaint;
    }
    DWORD GetEdgeCol() const { return Record().EdgeCol; }
    /// Sets the gradient and selects it as paint: mode is stored and has no effect, patern is that
    /// of tagGRADINFO, (x, y) its centre within the layer, col1 the far end, col2 the start.
    void SetEdgeGrad(LONG mode, LONG patern, LONG x, LONG y, DWORD col1, DWORD col2) {
        Record().EdgeGrad = {mode, patern, x, y, col1, col2};
        Record().EdgeMode = kv::kGradientPaint;
    }
    void GetEdgeGrad(LONG* mode, LONG* patern, LONG* x, LONG* y, DWORD* col1, DWORD* col2) const {
        ReadGrad(Record().EdgeGrad, mode, patern, x, y, col1, col2);
    }
    LONG GetEdgeGrad_Mode() const { return Record().EdgeGrad.Mode; }
    LONG GetEdgeGrad_Patern() const { return Record().EdgeGrad.Patern; }
    LONG GetEdgeGrad_x() const { return Record().EdgeGrad.x; }
    LONG GetEdgeGrad_y() const { return Record().EdgeGrad.y; }
    DWORD GetEdgeGrad_Col1() const { return Record().EdgeGrad.Col1; }
    DWORD GetEdgeGrad_Col2() const { return Record().EdgeGrad.Col2; }
    LONG GetEdgeText_Mode() const { return Record().EdgeText.Mode; }

    /// Paint of the shadow, a kv::PaintKind.
    LONG GetShadMode() const { return Record().ShadMode; }
    /// Sets the colour and selects it as paint.
    void SetShadCol(DWORD colour) {
        Record().ShadCol = colour;
        Record().ShadMode = kv::kColourPaint;
    }
    DWORD GetShadCol() const { return Record().ShadCol; }
    /// Sets the gradient and selects it as paint: mode is stored and has no effect, patern is that
    /// of tagGRADINFO, (x, y) its centre within the layer, col1 the far end, col2 the start.
    void SetShadGrad(LONG mode, LONG patern, LONG x, LONG y, DWORD col1, DWORD col2) {
        Record().ShadGrad = {mode, patern, x, y, col1, col2};
        Record().ShadMode = kv::kGradientPaint;
    }
    void GetShadGrad(LONG* mode, LONG* patern, LONG* x, LONG* y, DWORD* col1, DWORD* col2) const {
        ReadGrad(Record().ShadGrad, mode, patern, x, y, col1, col2);
    }
    LONG GetShadGrad_Mode() const { return Record().ShadGrad.Mode; }
    LONG GetShadGrad_Patern() const { return Record().ShadGrad.Patern; }
    LONG GetShadGrad_x() const { return Record().ShadGrad.x; }
    LONG GetShadGrad_y() const { return Record().ShadGrad.y; }
    DWORD GetShadGrad_Col1() const { return Record().ShadGrad.Col1; }
    DWORD GetShadGrad_Col2() const { return Record().ShadGrad.Col2; }
    LONG GetShadText_Mode() const { return Record().ShadText.Mode; }

  protected:
    KVEffectAccess() = default;
    KVEffectAccess(const KVEffectAccess&) = default;
    KVEffectAccess& operator=(const KVEffectAccess&) = default;
    ~KVEffectAccess() = default;

  private:
    tagKVBWDRAWINFO& Record() { return static_cast<Holder*>(this)->EffectRecord(); }
    const tagKVBWDRAWINFO& Record() const {
        return static_cast<const Holder*>(this)->EffectRecord();
    }

    static void ReadGrad(const tagGRADINFO& grad, LONG* mode, LONG* patern, LONG* x, LONG* y,
                         DWORD* col1, DWORD* col2) {
        *mode = grad.Mode;
        *patern = grad.Patern;
        *x = grad.x;
        *y = grad.y;
        *col1 = grad.Col1;
        *col2 = grad.Col2;
    }
};
