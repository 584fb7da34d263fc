// The library itself comes and goes: nothing here is linked with it.

#include <dlfcn.h>
#include <gtest/gtest.h>

namespace {

bool OutsideModuleIsLoaded() {
    void* const module = dlopen("ippi-7.0.dll", RTLD_NOW | RTLD_NOLOAD);
    if (module != nullptr) {
        dlclose(module);
    }
    return module != nullptr;
}

TEST(Unload, OutsideModuleComesAndGoesWithTheLibrary) {
    ASSERT_FALSE(OutsideModuleIsLoaded());
    void* const library = dlopen(KVDRAW_LIBRARY_FILE, RTLD_NOW);
    ASSERT_NE(library, nullptr) << dlerror();
    EXPECT_TRUE(OutsideModuleIsLoaded());
    dlclose(library);
    EXPECT_FALSE(OutsideModuleIsLoaded());
}

}  // namespace
