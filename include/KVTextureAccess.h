#pragma once

#include "KVDrawInfo.h"

/// The texture properties of a drawing object, which keeps the three file names in strings of its
/// own (m_BodyFile, m_EdgeFile, m_ShadFile): the record's File pointers own nothing and point at
/// the characters of those strings. A null name is taken as an empty one. The file is read at
/// each drawing; one that cannot be read shows as solid black.
///
/// Holder derives from this class, has the three strings as members and gives
/// `tagKVBWDRAWINFO& EffectRecord()` and its const form. It must call ConnectAll after any copy of
/// the record, since the pointers come over with it.
template <typename Holder>
class KVTextureAccess {
  public:
    /// Sets the texture of the body, its mode a kv::TextureMode, and selects it as paint.
    void SetBodyText(LONG mode, const char* file) {
        SetText(Record().BodyText, Self().m_BodyFile, mode, file);
        Record().BodyMode = kv::kTexturePaint;
    }
    const char* GetBodyText(LONG* mode) const {
        *mode = Record().BodyText.Mode;
        return Self().m_BodyFile;
    }
    const char* GetBodyText_File() const { return Self().m_BodyFile; }

    /// Sets the texture of the edge, its mode a kv::TextureMode, and selects it as paint.
    void SetEdgeText(LONG mode, const char* file) {
        SetText(Record().EdgeText, Self().m_EdgeFile, mode, file);
        Record().EdgeMode = kv::kTexturePaint;
    }
    const char* GetEdgeText(LONG* mode) const {
        *mode = Record().EdgeText.Mode;
        return Self().m_EdgeFile;
    }
    const char* GetEdgeText_File() const { return Self().m_EdgeFile; }

    /// Sets the texture of the shadow, its mode a kv::TextureMode, and selects it as paint.
    void SetShadText(LONG mode, const char* file) {
        SetText(Record().ShadText, Self().m_ShadFile, mode, file);
        Record().ShadMode = kv::kTexturePaint;
    }
    const char* GetShadText(LONG* mode) const {
        *mode = Record().ShadText.Mode;
        return Self().m_ShadFile;
    }
    const char* GetShadText_File() const { return Self().m_ShadFile; }

    /// Points File at the object's string again in each layer that is painted by a texture; the
    /// pointers of other layers stay as they are.
    void ResetConnect() {
        tagKVBWDRAWINFO& record = Record();
        if (record.BodyMode == kv::kTexturePaint) {
            record.BodyText.File = Self().m_BodyFile;
        }
        if (record.EdgeMode == kv::kTexturePaint) {
            record.EdgeText.File = Self().m_EdgeFile;
        }
        if (record.ShadMode == kv::kTexturePaint) {
            record.ShadText.File = Self().m_ShadFile;
        }
    }

  protected:
    KVTextureAccess() = default;
    KVTextureAccess(const KVTextureAccess&) = default;
    KVTextureAccess& operator=(const KVTextureAccess&) = default;
    ~KVTextureAccess() = default;

    /// Points all three File pointers at the object's strings, whatever the layers' paints.
    void ConnectAll() {
        Record().BodyText.File = Self().m_BodyFile;
        Record().EdgeText.File = Self().m_EdgeFile;
        Record().ShadText.File = Self().m_ShadFile;
    }

    /// The start values of a drawing object's effect: a white body, no edge and no shadow,
    /// which are black once they have a size. The position stays.
    void SetDefaultEffect() {
        constexpr DWORD kWhite = 0xFFFFFFFF;
        constexpr DWORD kBlack = 0xFF000000;
        tagKVBWDRAWINFO fresh{};
        fresh.AntiScale = 16;
        fresh.Pos_X = Record().Pos_X;
        fresh.Pos_Y = Record().Pos_Y;
        fresh.BodyCol = kWhite;
        fresh.EdgeCol = fresh.ShadCol = kBlack;
        fresh.BodyGrad = {0, 0, -1, -1, kWhite, kWhite};
        fresh.EdgeGrad = fresh.ShadGrad = {0, 0, -1, -1, kBlack, kBlack};
        Record() = fresh;
        Self().m_BodyFile = "";
        Self().m_EdgeFile = "";
        Self().m_ShadFile = "";
        ConnectAll();
    }

  private:
    Holder& Self() { return *static_cast<Holder*>(this); }
    const Holder& Self() const { return *static_cast<const Holder*>(this); }
    tagKVBWDRAWINFO& Record() { return Self().EffectRecord(); }
    const tagKVBWDRAWINFO& Record() const { return Self().EffectRecord(); }

    template <typename String>
    static void SetText(tagTEXTUREINFO& texture, String& name, LONG mode, const char* file) {
        texture.Mode = mode;
        name = file;
        texture.File = name;
    }
};
