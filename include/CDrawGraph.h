#pragma once

#include "CBox.h"
#include "KVEffectAccess.h"
#include "KVTextureAccess.h"
#include "platform/archive.h"
#include "platform/array.h"
#include "platform/object.h"
#include "platform/string.h"

class CKVFrameBuffer;
class CKVMonoBitmap;

/// The shape drawing object: one of several kinds as a list of points, a pen, a fill and the effect
/// properties. It owns its points and strings; copies are independent of their source. Points and
/// lengths are final pixels of the target picture, and the points say where the shape is. One
/// object serves one thread at a time.
///
/// A point list that is too short for its kind makes drawing, and the readers that promise more
/// points than there are, throw CInvalidArgException.
class KVDRAW_API CDrawGraph : public CObject,
                              public KVEffectAccess<CDrawGraph>,
                              public KVTextureAccess<CDrawGraph> {
  public:
    /// The shape kinds as m_GraphType holds them.
    enum GraphType : LONG {
        kNoShape = 0,
        kLine = 1,
        kPolyLine = 2,
        kRect = 3,
        kRoundRect = 4,
        kEllipse = 5,
        kPie = 6,
        kPolyGon = 7,
        kSpline = 8
    };
    static constexpr LONG kShapeKinds = kSpline;  ///< numbered from 1 to this

    LONG m_GraphType = kNoShape;
    LONG m_FillMode = 0;             ///< 0 outline only, anything else solid inside
    LONG m_PenSize = 0;              ///< pen width; 0 and below: one enlarged pixel
    LONG m_PenType = 0;              ///< 0 round; else flat ends, and sharp corners of Rect and Pie
    CArray<CPoint, CPoint> m_Point;  ///< the kind's points
    double m_DegStart = 0.0;   ///< start angle of a Pie in degrees, 0 at 12 o'clock, clockwise
    double m_DegEnd = 0.0;     ///< end angle of a Pie
    tagKVBWDRAWINFO m_Info{};  ///< the effects; File pointers point at the strings below
    CString m_BodyFile;        ///< body texture file name
    CString m_EdgeFile;        ///< edge texture file name
    CString m_ShadFile;        ///< shadow texture file name
    CBox m_DispEria;           ///< what the last drawing touched in its frame buffer

    CDrawGraph();
    CDrawGraph(const CDrawGraph& other);
    CDrawGraph& operator=(const CDrawGraph& other);
    ~CDrawGraph() override = default;

    static CRuntimeClass classCDrawGraph;  ///< the class's run-time record
    static CObject* CreateObject();
    static CRuntimeClass* GetThisClass();
    static CRuntimeClass* _GetBaseClass();
    CRuntimeClass* GetRuntimeClass() const override;

    /// Start values: no shape, no fill, a round pen of 1, angles 0, a white body without edge or
    /// shadow. m_DispEria and the record's position stay as they are.
    void SetDefault();

    /// The setters store kind and points. Rectangles are normalised: the lesser coordinates first;
    /// the pointer must not be null. A null list, or one of fewer than 1 point, is stored as empty.
    void SetLine(tagPOINT a, tagPOINT b);
    void SetPolyLine(const tagPOINT* points, int count);
    void SetRect(const tagRECT* rect);
    /// size: width and height of the corner ellipse.
    void SetRoundRect(const tagRECT* rect, tagPOINT size);
    void SetEllipse(const tagRECT* rect);
    /// The wedge from start clockwise to end, in degrees, 0 at 12 o'clock.
    void SetPie(const tagRECT* rect, double start, double end);
    void SetPolyGon(const tagPOINT* points, int count);
    /// A chain of cubic Bezier curves: a point, then two control points and an end point a curve.
    /// Another count than 3k + 1 draws nothing but keeps its box: the mask is made for all points,
    /// stays black, and its layer's box is what m_DispEria tells.
    void SetSpline(const tagPOINT* points, int count);

    LONG GetGraphType() const { return m_GraphType; }
    int GetSize() const { return m_Point.GetSize(); }
    /// Point i, (0, 0) beyond the list.
    tagPOINT GetAt(int index) const;

    /// The readers of a kind. When the object is of another kind, or has no points, numbers are 0,
    /// points and rectangles (0, 0) and lists null with a count of 0. Lists are the object's own,
    /// good until the next setter. Results count the points written, 0 for none.
    int GetLine(tagPOINT* a, tagPOINT* b) const;
    tagPOINT* GetLine(int* count);
    tagPOINT* GetPolyLine(int* count) { return ListOf(kPolyLine, count); }
    int GetPolyLine_Size() const { return SizeOf(kPolyLine); }
    tagPOINT GetPolyLine_At(int index) const { return PointOf(kPolyLine, index); }
    int GetRect(tagRECT* rect) const { return RectOf(kRect, rect); }
    tagRECT GetRect() const { return RectOf(kRect); }
    tagPOINT* GetRect(int* count) { return CornersOf(kRect, count); }
    int GetRoundRect(tagRECT* rect, tagPOINT* size) const;
    tagRECT GetRoundRect() const { return RectOf(kRoundRect); }
    /// The two corners; the corner size lies behind them.
    tagPOINT* GetRoundRect(int* count) { return CornersOf(kRoundRect, count); }
    tagPOINT GetRoundRect_RSize() const;
    int GetEllipse(tagRECT* rect) const { return RectOf(kEllipse, rect); }
    tagRECT GetEllipse() const { return RectOf(kEllipse); }
    tagPOINT* GetEllipse(int* count) { return CornersOf(kEllipse, count); }
    /// Writes the stored angles whatever the kind.
    int GetPie(tagRECT* rect, double* start, double* end) const;
    tagRECT GetPie() const { return RectOf(kPie); }
    tagPOINT* GetPie(int* count) { return CornersOf(kPie, count); }
    double GetPie_DegStart() const { return m_GraphType == kPie ? m_DegStart : 0.0; }
    double GetPie_DegEnd() const { return m_GraphType == kPie ? m_DegEnd : 0.0; }
    tagPOINT* GetPolyGon(int* count) { return ListOf(kPolyGon, count); }
    int GetPolyGon_Size() const { return SizeOf(kPolyGon); }
    tagPOINT GetPolyGon_At(int index) const { return PointOf(kPolyGon, index); }
    tagPOINT* GetSpline(int* count) { return ListOf(kSpline, count); }
    int GetSpline_Size() const { return SizeOf(kSpline); }
    tagPOINT GetSpline_At(int index) const { return PointOf(kSpline, index); }

    void SetFillMode(LONG mode) { m_FillMode = mode; }
    LONG GetFillMode() const { return m_FillMode; }
    void SetPenSize(LONG size) { m_PenSize = size; }
    LONG GetPenSize() const { return m_PenSize; }
    void SetPenType(LONG type) { m_PenType = type; }
    LONG GetPenType() const { return m_PenType; }

    CBox& GetDispEria() { return m_DispEria; }

    /// Draws the shape into fb with all its effects and leaves the touched rectangle in m_DispEria.
    /// 0, or 1 when there is no shape. A shape too large for memory is left undrawn, as everything
    /// is for a null fb.
    int DrawFrame(CKVFrameBuffer* fb);
    /// Draws the shape by itself into fb, which is replaced by a buffer made to fit; the boxes are
    /// those of CKVBwDraw::SetFb. 0, or 1 when there is no shape.
    int DrawFrameEria(CKVFrameBuffer* fb, CBox& eria, CBox& body, CBox& edge, CBox& shad);

    /// The mask of the stored points drawn as the kind named, whatever m_GraphType: enlarged, with
    /// *pos its top left corner in final pixels. Always 0; a mask that cannot be had is left empty.
    int DispBwBmp_Line(CKVMonoBitmap* mask, tagPOINT* pos) const;
    int DispBwBmp_PolyLine(CKVMonoBitmap* mask, tagPOINT* pos) const;
    int DispBwBmp_Rect(CKVMonoBitmap* mask, tagPOINT* pos) const;
    int DispBwBmp_RoundRect(CKVMonoBitmap* mask, tagPOINT* pos) const;
    int DispBwBmp_Ellipse(CKVMonoBitmap* mask, tagPOINT* pos) const;
    int DispBwBmp_Pie(CKVMonoBitmap* mask, tagPOINT* pos) const;
    int DispBwBmp_PolyGon(CKVMonoBitmap* mask, tagPOINT* pos) const;
    int DispBwBmp_Spline(CKVMonoBitmap* mask, tagPOINT* pos) const;

    /// The offset of an angle (degrees, 0 at 12 o'clock, clockwise) from a centre: both axes are
    /// scaled by rx and rounded half away from zero; ry is not read.
    void GetDegAdd(double deg, int rx, int ry, tagPOINT* out) const;

    /// Stores the object in its file form ("DGO0") at the file's current position: all parameters,
    /// the points and the texture names, not m_DispEria. 1, or 0 when the file failed; what was
    /// written by then stays in it.
    int Write(CFile* file) const;
    /// Replaces the object's content from the file's current position, values as they come. 1, or 0
    /// when the file failed or ended early: the fields read by then are new, the others as they
    /// were, and the object can be used.
    int Read(CFile* file);
    /// Read or Write on the archive's file; the result is dropped.
    void Serialize(CArchive& archive) override;

    tagKVBWDRAWINFO& EffectRecord() { return m_Info; }
    const tagKVBWDRAWINFO& EffectRecord() const { return m_Info; }

  private:
    void StorePoints(LONG kind, const tagPOINT* points, int count);
    void StoreRect(LONG kind, const tagRECT& rect);
    bool IsFilled(LONG kind) const { return m_GraphType == kind && !m_Point.IsEmpty(); }
    tagPOINT* ListOf(LONG kind, int* count);
    int SizeOf(LONG kind) const { return m_GraphType == kind ? m_Point.GetSize() : 0; }
    tagPOINT PointOf(LONG kind, int index) const;
    tagRECT RectOf(LONG kind) const;
    int RectOf(LONG kind, tagRECT* rect) const;
    tagPOINT* CornersOf(LONG kind, int* count);
};
