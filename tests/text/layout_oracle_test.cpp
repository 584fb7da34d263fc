// All layouts against their arithmetic written down in one plain walk, over random records. Fonts,
// metrics, extents and drawing come from the platform layer.

#include <algorithm>
#include <random>
#include <string>

#include <CKVFont.h>
#include <KVUtf8.h>
#include <gtest/gtest.h>
#include <platform/dc.h>

#include "platform/font/font_name.h"
#include "platform/text/mbcs.h"
#include "text/fit_rule.h"

namespace {

struct Line {
    CKVMonoBitmap mask;
    tagPOINT pos{};
    tagPOINT next{};
};

class Oracle {
  public:
    Oracle(const tagKVFONTINFO& record, const char* string) : m_Info(record), m_Text(string) {}

    void Run(Line& line) {
        LOGFONTA plain = Find(m_Info.FontName), f = plain;
        if (m_Vertical && f.lfCharSet == 128) {
            CKVFont().GetFontLogfont(nullptr, (std::string("@") + f.lfFaceName).c_str(), &f);
        }
        f.lfHeight = m_Info.Size_Height * m_Scale;
        f.lfWeight = m_Info.Weight != 0 ? 700 : 400;
        f.lfItalic = BYTE(m_Info.Italic);
        f.lfWidth = f.lfOrientation = 0;
        f.lfEscapement = m_Vertical ? -900 : 0;
        CFont font = Use(f);
        const int a0 = m_Metric.tmAveCharWidth,
                  p = m_Info.Size_WidthPer != 0 ? m_Info.Size_WidthPer : 100;
        const double aspect = m_Info.AspectMode == 0 ? 1.125 : 1.0;
        if (m_Vertical) {
            f.lfHeight = int((m_Scale * m_Info.Size_Height * p * 1.125 + 50.0) / 100.0);
            f.lfWidth = a0;
        } else {
            f.lfWidth = int((double(a0) * p * aspect + 50.0) / 100.0);
        }
        font = Use(f);
        const int a = m_Metric.tmAveCharWidth;
        if (m_Info.SpPer != 0) {
            m_Context.SetTextJustification(-(a / 2) - int(a * 0.5 * m_Info.SpPer / -100.0), 1);
        }
        CStringArray parts;
        CString multi;
        CKVFont().SplitMultiAndSingle(m_Text.c_str(), parts, multi);
        m_Measured = m_Info.Dir == 3 ? std::string(multi) : m_Text;
        m_Extra = m_Info.Space * m_Scale;
        Measure();
        if (m_Info.FitMode != 0) {
            const int target = (m_Vertical ? m_Info.Eria_Height : m_Info.Eria_Width) * m_Scale;
            const auto [extra, shrinks, resized, ratio] =
                kv::text::Fit({m_Length, target, m_Count, m_Extra, m_Info.FitSpMax_Min * m_Scale,
                               m_Info.FitSpMax_Max * m_Scale, m_Info.FitMode == 2});
            m_Extra = int(extra);
            if (resized) {
                const double cut = m_Info.Dir == 0 ? 0.0 : 0.5;
                int q = int(p * ratio + cut);
                q = shrinks ? std::max(q, m_Info.FitStrMax_Min) : std::min(q, m_Info.FitStrMax_Max);
                f.lfWidth = m_Info.Dir == 3   ? int((ratio * 100.0 * a + 50.0) / 100.0)
                            : m_Info.Dir == 2 ? int((double(a0) * q * aspect + 50.0) / 100.0)
                                              : int((double(a) * q + 50.0) / 100.0);
            }
            font = Use(f);
            Measure();
        }
        Place(f.lfCharSet, line);
        CBitmap bitmap;
        bitmap.CreateBitmap(m_Width, m_Height, 1, 1, nullptr);
        m_Context.SelectObject(bitmap);
        m_Context.SetTextColor(0xFFFFFF);
        m_Context.SetBkColor(0);
        m_Context.SetTextCharacterExtra(m_Extra);
        if (m_Info.Dir == 3) {
            plain.lfHeight = 2 * f.lfWidth;
            plain.lfWidth = f.lfHeight / 2;
            plain.lfWeight = f.lfWeight;
            plain.lfItalic = f.lfItalic;
            DrawRuns(parts, font, plain);
        } else {
            Out(m_Vertical ? m_Across : 0, 0, m_Text);
        }
        line.mask.Create(m_Width, m_Height);
        bitmap.GetBitmapBits(line.mask.Size, line.mask.Bits);
    }

  private:
    static LOGFONTA Find(const char* name) {
        LOGFONTA found{};
        kv::font::StoreName(name, found.lfFaceName);
        CKVFont().GetFontLogfont(nullptr, name, &found);
        return found;
    }
    CFont Use(const LOGFONTA& f) {
        CFont font;
        font.CreateFontIndirectA(f);
        m_Context.SelectObject(font);
        m_Context.GetTextMetricsA(&m_Metric);
        return font;
    }
    tagSIZE Extent(const std::string& run) {
        tagSIZE size{};
        m_Context.GetTextExtentPoint32A(run.c_str(), int(run.size()), &size);
        return size;
    }
    void Out(int x, int y, const std::string& run) {
        m_Context.TextOutA(x, y, run.c_str(), int(run.size()));
    }
    void Measure() {
        m_Context.SetTextCharacterExtra(m_Extra < 0 ? 0 : m_Extra);
        m_Count = int(kv::_mbslen(m_Measured.c_str()));
        m_Length = Extent(m_Measured).cx + (m_Extra < 0 ? (m_Count - 2) * m_Extra : -m_Extra);
        m_Across = Extent(m_Measured).cy;
    }
    void Place(BYTE charSet, Line& line) {
        const int v = m_Info.Italic != 0 ? m_Metric.tmAveCharWidth / 2 : 0,
                  along = m_Length / m_Scale;
        const int low =
            charSet == 128 ? 0
                           : m_Metric.tmDescent / m_Scale - int(m_Metric.tmHeight * 0.05 / m_Scale);
        const int area = m_Vertical ? m_Info.Eria_Height : m_Info.Eria_Width;
        const int align = m_Info.Format == 1   ? area - along
                          : m_Info.Format == 2 ? area / 2 - along / 2
                                               : 0;
        int x = m_Info.Pos_X, y = m_Info.Pos_Y;
        if (m_Vertical) {
            m_Width = (m_Across + 15) / 16 * 16;
            m_Height = (m_Length + v + m_Scale - 1) / m_Scale * m_Scale;
            line.pos = {x - low, y + align};
            line.next = {x, (m_Info.FitMode != 0 ? y : line.pos.y) + along};
        } else {
            m_Width = (m_Length + v + 15) / 16 * 16;
            m_Height = (m_Across + m_Scale - 1) / m_Scale * m_Scale;
            if (m_Info.AddressMode != 0)
                x = m_Info.NextAddress_X, y = m_Info.NextAddress_Y;
            line.pos = {x + align, y - m_Metric.tmHeight / m_Scale + low};
            line.next = {(m_Info.FitMode != 0 ? m_Info.Pos_X : line.pos.x) + along, m_Info.Pos_Y};
        }
    }
    void DrawRuns(const CStringArray& parts, const CFont& line, const LOGFONTA& upright) {
        for (int i = 0, c = 0; i < parts.GetSize(); ++i) {
            const std::string run(parts[i]);
            m_Context.SelectObject(line);
            m_Context.SetTextCharacterExtra(m_Extra);
            if (kv::CharBytes(run.c_str()) == 2) {
                Out(m_Across, c, run);
                c += Extent(run).cx;
            } else if (!run.empty()) {
                const tagSIZE cell = Extent("\x81\x9B");
                m_Context.SetTextCharacterExtra(0);
                LOGFONTA squeezed = upright;
                Use(upright);
                const int r = Extent(run).cx;
                if (r > cell.cy) {
                    const int q = int(double(cell.cy) / r * 100.0);
                    squeezed.lfWidth = int((double(q) * m_Metric.tmAveCharWidth + 50.0) / 100.0);
                    Use(squeezed);
                }
                if (upright.lfHeight != 0)
                    Out(r > cell.cy ? 0 : cell.cy / 2 - r / 2, c, run);
                c += cell.cx;
            }
        }
    }

    const tagKVFONTINFO& m_Info;
    const std::string m_Text;
    std::string m_Measured;
    CDC m_Context;
    TEXTMETRICA m_Metric{};
    const bool m_Vertical = m_Info.Dir % 2 == 1;
    const int m_Scale = m_Info.AntiScale;
    int m_Extra = 0, m_Count = 0, m_Length = 0, m_Across = 0, m_Width = 0, m_Height = 0;
};

tagKVFONTINFO RandomRecord(std::mt19937& random) {
    using Info = tagKVFONTINFO;
    const auto pick = [&](int low, int high) { return low + int(random() % unsigned(high - low)); };
    struct {
        LONG Info::*field;
        int low, high;
    } const ranges[] = {{&Info::AspectMode, 0, 2},       {&Info::Size_Height, -4, 24},
                        {&Info::Size_WidthPer, 40, 180}, {&Info::Dir, 0, 4},
                        {&Info::FitMode, 0, 3},          {&Info::Space, -5, 9},
                        {&Info::Weight, 0, 2},           {&Info::Italic, 0, 2},
                        {&Info::Format, 0, 4},           {&Info::Eria_Width, -5, 260},
                        {&Info::Eria_Height, -5, 260},   {&Info::FitStrMax_Max, 0, 300},
                        {&Info::FitStrMax_Min, -30, 90}, {&Info::FitSpMax_Max, -3, 12},
                        {&Info::FitSpMax_Min, -5, 3},    {&Info::Pos_X, -99, 99},
                        {&Info::Pos_Y, -99, 99},         {&Info::AddressMode, 0, 2},
                        {&Info::NextAddress_X, -99, 99}, {&Info::NextAddress_Y, -99, 99}};
    const char* const faces[] = {"ＭＳ ゴシック", "ＭＳ 明朝", "Arial", "IPA P明朝", "Nowhere"};
    Info info{};
    for (const auto& range : ranges) {
        info.*range.field = pick(range.low, range.high);
    }
    kv::font::StoreName(static_cast<const char*>(KVFromUtf8(faces[pick(0, 5)])), info.FontName);
    info.AntiScale = pick(0, 4) == 0 ? 1 : 4 << pick(0, 3);
    info.SpPer = pick(0, 2) * pick(0, 300);
    info.Size_WidthPer *= pick(0, 3) != 0;
    return info;
}

TEST(Layouts, FollowTheirArithmetic) {
    using Layout = int (CKVFont::*)(HWND, tagKVFONTINFO*, const char*, CKVMonoBitmap*, tagPOINT*);
    const Layout layouts[][2] = {{&CKVFont::NomDispBwBmpH, &CKVFont::FitDispBwBmpH},
                                 {&CKVFont::NomDispBwBmpV, &CKVFont::FitDispBwBmpV},
                                 {&CKVFont::NomDispBwBmpH, &CKVFont::FitDispBwBmpH2},
                                 {&CKVFont::NomDispBwBmpV2, &CKVFont::FitDispBwBmpV2}};
    const CString texts[] = {
        KVFromUtf8("平成25年（冬）。"), KVFromUtf8("ーっ ｶﾅ ab"), "x",   "",
        KVFromUtf8("第12345回 NHK"),    KVFromUtf8("字"),         "   ", "ab\x83"};
    std::mt19937 random(3);
    int inked = 0;
    for (int i = 0; i < 800; ++i) {
        tagKVFONTINFO info = RandomRecord(random);
        const char* const text = texts[random() % std::size(texts)];
        SCOPED_TRACE(testing::Message() << i << " Dir " << info.Dir << " FitMode " << info.FitMode);
        Line expected, found;
        Oracle(info, text).Run(expected);
        tagKVFONTINFO before = info;
        (CKVFont().*layouts[info.Dir][info.FitMode != 0])(nullptr, &info, text, &found.mask,
                                                          &found.pos);
        EXPECT_EQ(CPoint(found.pos), CPoint(expected.pos));
        EXPECT_EQ(CPoint(info.NextAddress_X, info.NextAddress_Y), CPoint(expected.next));
        EXPECT_EQ(found.mask.Width, expected.mask.Width);
        ASSERT_EQ(found.mask.Height, expected.mask.Height);
        const BYTE *const bits = found.mask.Bits, *const end = bits + found.mask.Size;
        ASSERT_TRUE(std::equal(bits, end, expected.mask.Bits));
        inked += std::count_if(bits, end, [](BYTE byte) { return byte != 0; }) > 50;
        CKVFont().FontFbDisp(nullptr, &before, text, nullptr, nullptr);
        EXPECT_EQ(CPoint(before.BwDrawInfo.Pos_X, before.BwDrawInfo.Pos_Y), CPoint(expected.pos));
        EXPECT_EQ(CPoint(before.NextAddress_X, before.NextAddress_Y), CPoint(expected.next));
    }
    EXPECT_GT(inked, 300);
}

TEST(FitRule, SettlesEqualitiesAndWhatHasNoRatio) {
    struct {
        const char* what;
        kv::text::FitTask task;  // length, target, count, extra, least, most, may stretch
        std::int64_t extra;
        double ratio;  // 1 when the width stays
    } const cases[] = {
        {"worked fit", {1800, 1600, 5, 0, -32, 0, false}, -32, 1600.0 / 1672},
        {"exactly the target", {1600, 1600, 5, 7, -99, 99, true}, 7, 1.0},
        {"short, shrinking only", {1500, 1600, 5, 7, -99, 99, false}, 7, 1.0},
        {"shrunk by the distance", {1800, 1600, 5, 0, -51, 0, true}, -50, 1.0},
        {"least reached, nothing left", {1800, 1600, 5, 0, -50, 0, true}, -50, 1.0},
        {"least reached, a remainder left", {1803, 1600, 5, 0, -50, 0, true}, -50, 1600.0 / 1603},
        {"most reached, a remainder dropped", {1397, 1600, 5, 0, 0, 50, true}, 50, 1.0},
        {"most passed", {1396, 1600, 5, 0, 0, 50, true}, 51 - 1, 1600.0 / 1596},
        {"less than a pixel a gap", {1603, 1600, 5, 4, -9, 9, true}, 4, 1.0},
        {"one character", {900, 1600, 1, 4, -9, 9, true}, 4, 1600.0 / 900},
        {"raised to the least", {1700, 1600, 3, -40, -20, 0, false}, -20, 1600.0 / 1740},
        {"lowered to the most", {1500, 1600, 3, 40, 0, 10, true}, 10, 1600.0 / 1440},
        {"stretch of nothing", {0, 1600, 0, 0, 0, 0, true}, 0, 1.0},
        {"stretch of less", {-30, 1600, 1, 0, 0, 0, true}, 0, 1.0},
        {"an area of nothing", {900, 0, 1, 0, 0, 0, true}, 0, 0.0},
        {"an area of less", {900, -90, 1, 0, 0, 0, true}, 0, -0.1},
    };
    for (const auto& c : cases) {
        const kv::text::FitOutcome fit = kv::text::Fit(c.task);
        EXPECT_EQ(fit.extra, c.extra) << c.what;
        EXPECT_EQ(fit.ratio, c.ratio) << c.what;
        EXPECT_EQ(fit.resized, c.ratio != 1.0) << c.what;
    }
}

}  // namespace
