// Pens and brushes.

#include "platform/pen.h"

#include <algorithm>

bool CPen::CreatePen(DWORD style, LONG width, COLORREF colour) {
    constexpr DWORD kKnown = PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER;
    if ((style & ~kKnown) != 0) {
        *this = CPen();
        return false;
    }
    m_Style = style;
    m_Width = std::max(width, 1);
    m_Colour = colour;
    return true;
}

bool CBrush::CreateSolidBrush(COLORREF colour) {
    m_Null = false;
    m_Colour = colour;
    return true;
}
