#include <memory>

#include <gtest/gtest.h>
#include <platform/object.h>

namespace {

class Sample : public CObject {
  public:
    static CObject* CreateObject() { return new Sample; }
    static CRuntimeClass* GetThisClass() { return &classSample; }
    CRuntimeClass* GetRuntimeClass() const override { return &classSample; }
    static CRuntimeClass* GetBaseClass() { return CObject::GetThisClass(); }

    static CRuntimeClass classSample;
};

constinit CRuntimeClass Sample::classSample{"Sample", VERSIONABLE_SCHEMA, &Sample::CreateObject,
                                            &Sample::GetBaseClass, nullptr};

// Runs before the entry below is made: an unregistered class is not found, and nothing breaks.
const bool g_FoundEarly = CRuntimeClass::FromName("Sample") != nullptr;
const CRuntimeClassEntry g_Entry(Sample::classSample);
const bool g_FoundAtOnce = CRuntimeClass::FromName("Sample") == &Sample::classSample;

TEST(RuntimeClass, IsFoundAndMadeByName) {
    EXPECT_FALSE(g_FoundEarly);
    EXPECT_TRUE(g_FoundAtOnce);
    const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject("Sample"));
    ASSERT_NE(dynamic_cast<Sample*>(made.get()), nullptr);
    EXPECT_EQ(made->GetRuntimeClass(), &Sample::classSample);
    EXPECT_TRUE(made->GetRuntimeClass()->IsDerivedFrom(&CObject::classCObject));
    EXPECT_FALSE(CObject::classCObject.IsDerivedFrom(&Sample::classSample));
}

TEST(RuntimeClass, UnknownAndAbstractClassesGiveNull) {
    EXPECT_EQ(CRuntimeClass::FromName("sample"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName(nullptr), nullptr);
    EXPECT_EQ(CRuntimeClass::CreateObject("CObject"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("CObject"), CObject::GetThisClass());
}

}  // namespace
