// SPDX-License-Identifier: Apache-2.0
// Loads the library named by its argument, opens its connection, asks for the desktop's pop-ups and unloads it again, a
// hundred times, and goes on handling events: what the library left behind must still be there.
#include <QCoreApplication>
#include <QTimer>

#include <dlfcn.h>
#include <link.h>

namespace {

/// Whether dlclose() leaves it where it is whatever it contains.
bool isToStay(void* library)
{
    link_map* map = nullptr;
    if (dlinfo(library, RTLD_DI_LINKMAP, &map) != 0)
        return false;
    for (const ElfW(Dyn)* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_FLAGS_1)
            return (entry->d_un.d_val & DF_1_NODELETE) != 0;
    }
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc < 2)
        return 2;
    constexpr int times = 100;
    for (int i = 0; i < times; ++i) {
        void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr)
            return 2;
        if (!isToStay(library))
            return 3;
        // zepa::bus::Connection::shared() and open().
        const auto shared = reinterpret_cast<void* (*)()>(dlsym(library, "_ZN4zepa3bus10Connection6sharedEv"));
        const auto open = reinterpret_cast<void (*)(void*)>(dlsym(library, "_ZN4zepa3bus10Connection4openEv"));
        // zepaPopupService() and zepaDoNotDisturb().
        const auto askService = reinterpret_cast<int (*)()>(dlsym(library, "_Z16zepaPopupServicev"));
        const auto askQuiet = reinterpret_cast<int (*)()>(dlsym(library, "_Z16zepaDoNotDisturbv"));
        if (shared == nullptr || open == nullptr || askService == nullptr || askQuiet == nullptr)
            return 2;
        open(shared());
        askService();
        askQuiet();
        dlclose(library);
        QCoreApplication::processEvents();
    }
    // Time for answers and for the first timer.
    QTimer::singleShot(1500, &application, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
