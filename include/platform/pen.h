#pragma once

#include "export.h"
#include "types.h"

// Pens and brushes are values: selecting one copies it, so nothing can dangle.

inline constexpr DWORD PS_SOLID = 0;
inline constexpr DWORD PS_GEOMETRIC = 0x10000;
inline constexpr DWORD PS_ENDCAP_ROUND = 0;
inline constexpr DWORD PS_ENDCAP_FLAT = 0x200;
inline constexpr DWORD PS_ENDCAP_MASK = 0xF00;
inline constexpr DWORD PS_JOIN_ROUND = 0;
inline constexpr DWORD PS_JOIN_MITER = 0x2000;
inline constexpr DWORD PS_JOIN_MASK = 0xF000;

/// A solid pen. A null one draws nothing.
class KVDRAW_API CPen {
  public:
    CPen() = default;

    /// Ends and joins are those of the style, round ones for PS_SOLID. A width of 1 and below, in
    /// pixels, draws lines one pixel wide. False, and a null pen, for a style that is not solid.
    bool CreatePen(DWORD style, LONG width, COLORREF colour);
    bool IsNull() const { return m_Width == 0; }

    DWORD m_Style = PS_SOLID;
    LONG m_Width = 0;  ///< 0 in a null pen only
    COLORREF m_Colour = 0;
};

/// A solid brush. A null one fills nothing.
class KVDRAW_API CBrush {
  public:
    CBrush() = default;

    /// Always true.
    bool CreateSolidBrush(COLORREF colour);
    bool IsNull() const { return m_Null; }

    bool m_Null = true;
    COLORREF m_Colour = 0;
};
