// The library itself comes and goes, and the outside module with it: nothing here is linked with
// it.

#include <dlfcn.h>
#include <gtest/gtest.h>

TEST(Unload, OutsideModuleComesAndGoesWithTheLibrary) {
    constexpr const char* kModule = "ippi-7.0.dll";
    ASSERT_EQ(dlopen(kModule, RTLD_NOW | RTLD_NOLOAD), nullptr);
    void* const library = dlopen(KVDRAW_LIBRARY_FILE, RTLD_NOW);
    ASSERT_NE(library, nullptr) << dlerror();
    void* const module = dlopen(kModule, RTLD_NOW | RTLD_NOLOAD);
    ASSERT_NE(module, nullptr);
    dlclose(module);
    dlclose(library);
    EXPECT_EQ(dlopen(kModule, RTLD_NOW | RTLD_NOLOAD), nullptr);
}
