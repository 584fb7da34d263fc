#pragma once

#include "KVEffectAccess.h"
#include "platform/export.h"

class CString;

/// An effect record with named accessors, for an application that calls the render itself.
///
/// It owns the texture names: a File pointer written through GetInfo must be an array allocation
/// (`new char[n]`) or null, and is freed here. A copy gets names of its own (null where there is no
/// memory for one).
class KVDRAW_API CBwDrawInfo : public KVEffectAccess<CBwDrawInfo> {
  public:
    /// AntiScale 16, all else 0: a colour body with colour 0, no edge, no shadow.
    CBwDrawInfo();
    CBwDrawInfo(const CBwDrawInfo& other);
    CBwDrawInfo& operator=(const CBwDrawInfo& other);
    virtual ~CBwDrawInfo();

    /// The record itself. Pos_X, Pos_Y and the texture fields are written through it.
    tagKVBWDRAWINFO* GetInfo() { return &m_Info; }
    tagKVBWDRAWINFO& EffectRecord() { return m_Info; }
    const tagKVBWDRAWINFO& EffectRecord() const { return m_Info; }

    const char* GetBodyText_File() const { return m_Info.BodyText.File; }
    const char* GetBodyText(LONG* mode) const { return ReadText(m_Info.BodyText, mode); }
    void GetBodyText(LONG* mode, CString& file) const { ReadText(m_Info.BodyText, mode, file); }

    const char* GetEdgeText_File() const { return m_Info.EdgeText.File; }
    const char* GetEdgeText(LONG* mode) const { return ReadText(m_Info.EdgeText, mode); }
    void GetEdgeText(LONG* mode, CString& file) const { ReadText(m_Info.EdgeText, mode, file); }

    const char* GetShadText_File() const { return m_Info.ShadText.File; }
    const char* GetShadText(LONG* mode) const { return ReadText(m_Info.ShadText, mode); }
    void GetShadText(LONG* mode, CString& file) const { ReadText(m_Info.ShadText, mode, file); }

  private:
    static const char* ReadText(const tagTEXTUREINFO& texture, LONG* mode);
    static void ReadText(const tagTEXTUREINFO& texture, LONG* mode, CString& file);
    void CopyFrom(const CBwDrawInfo& other);
    void FreeNames();

    tagKVBWDRAWINFO m_Info{};
};
