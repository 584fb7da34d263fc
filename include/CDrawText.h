#pragma once

#include "CKVFont.h"
#include "KVEffectAccess.h"
#include "KVTextureAccess.h"
#include "platform/archive.h"
#include "platform/object.h"

/// The text drawing object: a string, a font, a position and the effect properties, drawn as one
/// line. It owns its parameters and its strings; copies are independent of their source. Lengths
/// and positions are final pixels, strings are code page 932 (KVFromUtf8 makes them from UTF-8).
/// Setters bring values into range silently. One object serves one thread at a time.
class KVDRAW_API CDrawText : public CKVFont,
                             public CObject,
                             public KVEffectAccess<CDrawText>,
                             public KVTextureAccess<CDrawText> {
  public:
    tagKVFONTINFO
        m_Font{};        ///< all parameters; its texture File pointers point at the strings below
    CString m_String;    ///< the text
    CString m_BodyFile;  ///< body texture file name
    CString m_EdgeFile;  ///< edge texture file name
    CString m_ShadFile;  ///< shadow texture file name
    CBox m_DispEria;     ///< what the last drawing touched in its frame buffer

    CDrawText();
    CDrawText(const CDrawText& other);
    CDrawText& operator=(const CDrawText& other);
    ~CDrawText() override = default;

    static CRuntimeClass classCDrawText;  ///< the class's run-time record
    static CObject* CreateObject();
    static CRuntimeClass* GetThisClass();
    static CRuntimeClass* _GetBaseClass();
    CRuntimeClass* GetRuntimeClass() const override;

    /// Start values: an upright white line of the Japanese gothic face, 32 pixels high, at (72,
    /// 438), enlarged 16 times, no edge, no shadow, an empty string. m_DispEria and the effect
    /// record's position stay as they are.
    void SetDefault();

    /// Family name; its first 32 bytes are kept, 31 are used. It is not checked that the family
    /// exists.
    void SetFontName(const char* name);
    /// Left end and lower edge of a horizontal line's cells, left edge and upper end of a vertical
    /// one. A Latin face's cells are moved down to the baseline of Japanese ones.
    void SetPos(LONG x, LONG y);
    void SetPos(CPoint pos) { SetPos(pos.x, pos.y); }
    /// Height of the character cell in pixels (a negative one is the em's) and width in percent, 0
    /// for 100.
    void SetSize(LONG height, LONG widthPer);
    /// The same with the width in cx and the height in cy.
    void SetSize(CSize size) { SetSize(size.cy, size.cx); }
    /// Extra distance between characters, may be negative.
    void SetSpace(LONG space) { m_Font.Space = space; }
    /// Width of a blank in percent of the font's; 0 switches the adjustment off.
    void SetSpPer(LONG percent) { m_Font.SpPer = percent; }
    void SetItalic(LONG italic) { m_Font.Italic = italic != 0 ? 1 : 0; }
    void SetWeight(LONG weight) { m_Font.Weight = weight != 0 ? 1 : 0; }
    /// Alignment in the area: 0 start, 1 end, 2 centre.
    void SetFormat(LONG format);
    /// The area in which alignment and fitting place the line.
    void SetEria(LONG width, LONG height);
    void SetEria(CSize size) { SetEria(size.cx, size.cy); }
    /// 0 and 2 horizontal, 1 and 3 vertical: 1 lays single-byte characters on their side, 3 sets
    /// each run of them upright in one cell. 2 differs from 0 when fitting only: see
    /// FitDispBwBmpH2.
    void SetDir(LONG dir);
    /// Enlargement, snapped to 1, 4, 8 or 16.
    void SetAntiScale(LONG scale);
    LONG GetAntiScale() const { return m_Font.BwDrawInfo.AntiScale; }
    /// 0 none, 1 shrink to the area, 2 shrink or stretch: to the width of a horizontal line's area,
    /// the height of a vertical one's.
    void SetFitMode(LONG mode);
    /// Bounds of the character width in percent when a fit stretches and shrinks; Dir 3 reads none.
    void SetFitStrMax(LONG max, LONG min);
    void SetFitStrMax(CSize bounds) { SetFitStrMax(bounds.cx, bounds.cy); }
    /// Bounds of the character distance when a fit stretches and shrinks. It changes first.
    void SetFitSpMax(LONG max, LONG min);
    void SetFitSpMax(CSize bounds) { SetFitSpMax(bounds.cx, bounds.cy); }
    /// 0 widens the characters of a horizontal line by 1.125, 1 does not.
    void SetAspectMode(LONG mode);
    /// 0 starts a horizontal line at its position, 1 where the last drawing ended.
    void SetAddressMode(LONG mode);
    /// Sets the point where a continuing line starts.
    void SetNextAddress(LONG x, LONG y);
    void SetNextAddress(CPoint point) { SetNextAddress(point.x, point.y); }
    void SetString(const char* text) { m_String = text; }

    LONG GetAspectMode() const { return m_Font.AspectMode; }
    LONG GetDir() const { return m_Font.Dir; }
    LONG GetSpace() const { return m_Font.Space; }
    LONG GetSpPer() const { return m_Font.SpPer; }
    LONG GetWeight() const { return m_Font.Weight; }
    LONG GetItalic() const { return m_Font.Italic; }
    LONG GetFormat() const { return m_Font.Format; }
    LONG GetFitMode() const { return m_Font.FitMode; }
    LONG GetAddressMode() const { return m_Font.AddressMode; }
    LONG GetSize_Height() const { return m_Font.Size_Height; }
    LONG GetSize_WidthPer() const { return m_Font.Size_WidthPer; }
    LONG GetEria_Width() const { return m_Font.Eria_Width; }
    LONG GetEria_Height() const { return m_Font.Eria_Height; }
    LONG GetFitStrMax_Max() const { return m_Font.FitStrMax_Max; }
    LONG GetFitStrMax_Min() const { return m_Font.FitStrMax_Min; }
    LONG GetFitSpMax_Max() const { return m_Font.FitSpMax_Max; }
    LONG GetFitSpMax_Min() const { return m_Font.FitSpMax_Min; }
    LONG GetPos_X() const { return m_Font.Pos_X; }
    LONG GetPos_Y() const { return m_Font.Pos_Y; }
    LONG GetNextAddress_X() const { return m_Font.NextAddress_X; }
    LONG GetNextAddress_Y() const { return m_Font.NextAddress_Y; }

    const char* GetFontName() const { return m_Font.FontName; }
    const char* GetString() const { return m_String; }
    CPoint GetPos() const { return {m_Font.Pos_X, m_Font.Pos_Y}; }
    void GetPos(LONG* x, LONG* y) const;
    CPoint GetNextAddress() const { return {m_Font.NextAddress_X, m_Font.NextAddress_Y}; }
    void GetNextAddress(LONG* x, LONG* y) const;
    /// Width percent in cx, height in cy; the pointer form has the height first.
    CSize GetSize() const { return {m_Font.Size_WidthPer, m_Font.Size_Height}; }
    void GetSize(LONG* height, LONG* widthPer) const;
    CSize GetEria() const { return {m_Font.Eria_Width, m_Font.Eria_Height}; }
    void GetEria(LONG* width, LONG* height) const;
    CSize GetFitStrMax() const { return {m_Font.FitStrMax_Max, m_Font.FitStrMax_Min}; }
    void GetFitStrMax(LONG* max, LONG* min) const;
    CSize GetFitSpMax() const { return {m_Font.FitSpMax_Max, m_Font.FitSpMax_Min}; }
    void GetFitSpMax(LONG* max, LONG* min) const;

    /// 0 when a font of that name is there or has a well-known substitute, 1 when not: a true
    /// result means trouble.
    int CheckFontName(HWND window, const char* name);
    CBox& GetDispEria() { return m_DispEria; }

    /// Draws the line into fb with all its effects and leaves the touched rectangle in m_DispEria.
    /// Always 0: an unknown font is drawn in a substitute, what cannot be drawn is left undrawn, as
    /// everything is for a null fb. The window may be null.
    int DrawFrame(HWND window, CKVFrameBuffer* fb);
    /// Draws the line by itself into fb, which is replaced by a buffer made to fit. disp is the
    /// buffer's place in the scene; body, edge and shad are the layers' places within it. Always 0.
    int DrawFrameEria(HWND window, CKVFrameBuffer* fb, CBox& disp, CBox& body, CBox& edge,
                      CBox& shad);

    /// Stores the object in its file form ("DTO0") at the file's current position: all parameters,
    /// the string and the texture names, not m_DispEria. 1, or 0 when the file failed; what was
    /// written by then stays in it.
    int Write(CFile* file) const;
    /// Replaces the object's content from the file's current position, values as they come; only
    /// the font name's last byte is always 0. 1, or 0 when the file failed or ended early: the
    /// fields read by then are new, the others as they were, and the object can be used.
    int Read(CFile* file);
    /// Read or Write on the archive's file; the result is dropped.
    void Serialize(CArchive& archive) override;

    tagKVBWDRAWINFO& EffectRecord() { return m_Font.BwDrawInfo; }
    const tagKVBWDRAWINFO& EffectRecord() const { return m_Font.BwDrawInfo; }
};
