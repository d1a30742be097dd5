// SPDX-License-Identifier: Apache-2.0
// Runs dbus-broker as a session's bus, which nobody but a controller can: broker_controller SOCKET FOLDER [LIMIT ...]
//
// This process becomes the broker; a child of it is the controller. It makes the socket, allows everything to
// everybody, lets the broker start what the service files in FOLDER name, and says "ready" on standard output. The
// limits are options of dbus-broker.
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

/// The program that the broker asks for when somebody needs one of these names, by the path of the name's object.
struct Services
{
    std::string folder;
    std::map<std::string, std::vector<std::string>> commands;
};

int listenAt(const std::string& path)
{
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    if (path.size() >= sizeof name.sun_path)
        return -1;
    std::copy(path.begin(), path.end(), std::begin(name.sun_path));
    const bool listens =
        bind(socket, reinterpret_cast<const sockaddr*>(&name), sizeof name) == 0 && listen(socket, SOMAXCONN) == 0;
    return listens ? socket : -1;
}

/// Whether to connect, which names to own, what to send and what to receive, each "yes, with priority 1".
void appendBatch(sd_bus_message* message)
{
    constexpr auto anyCount = std::numeric_limits<std::uint64_t>::max();
    sd_bus_message_append(message, "bt", 1, UINT64_C(1));
    sd_bus_message_append(message, "a(btbs)", 1, 1, UINT64_C(1), 1, "");
    for (int direction = 0; direction < 2; ++direction)
        sd_bus_message_append(message, "a(btssssuutt)", 1, 1, UINT64_C(1), "", "", "", "", 0U, 0U, UINT64_C(0),
                              anyCount);
}

/// By user, by group, of SELinux (none), whether AppArmor is asked, and the type of the bus.
void appendPolicy(sd_bus_message* message)
{
    constexpr auto anyUser = std::numeric_limits<std::uint32_t>::max();
    const std::string batch = "bta(btbs)a(btssssuutt)a(btssssuutt)";
    const std::string user = "u(" + batch + ')';
    const std::string groups = "a(buu(" + batch + "))";
    const std::string policy = "a(" + user + ')' + groups + "a(ss)bs";
    sd_bus_message_open_container(message, 'v', ('(' + policy + ')').c_str());
    sd_bus_message_open_container(message, 'r', policy.c_str());
    sd_bus_message_open_container(message, 'a', ('(' + user + ')').c_str());
    sd_bus_message_open_container(message, 'r', user.c_str());
    sd_bus_message_append(message, "u", anyUser);
    sd_bus_message_open_container(message, 'r', batch.c_str());
    appendBatch(message);
    for (int level = 0; level < 3; ++level)
        sd_bus_message_close_container(message);
    sd_bus_message_append(message, groups.c_str(), 0);
    sd_bus_message_append(message, "a(ss)bs", 0, 0, "session");
    sd_bus_message_close_container(message);
    sd_bus_message_close_container(message);
}

sd_bus_message* newCall(sd_bus* bus, const char* member)
{
    sd_bus_message* message = nullptr;
    sd_bus_message_new_method_call(bus, &message, nullptr, "/org/bus1/DBus/Broker", "org.bus1.DBus.Broker", member);
    return message;
}

bool call(sd_bus* bus, sd_bus_message* message)
{
    sd_bus_error error = SD_BUS_ERROR_NULL;
    const int result = sd_bus_call(bus, message, 0, &error, nullptr);
    if (result < 0)
        std::cerr << "dbus-broker: " << (error.message != nullptr ? error.message : "no answer") << '\n';
    sd_bus_error_free(&error);
    sd_bus_message_unref(message);
    return result >= 0;
}

bool addListener(sd_bus* bus, int socket)
{
    sd_bus_message* message = newCall(bus, "AddListener");
    sd_bus_message_append(message, "oh", "/org/bus1/DBus/Listener/0", socket);
    appendPolicy(message);
    return call(bus, message);
}

std::string valueOf(const std::string& line, const std::string& key)
{
    return line.rfind(key + '=', 0) == 0 ? line.substr(key.size() + 1) : std::string();
}

/// Tells the broker of each service file that is new.
void addNames(sd_bus* bus, Services& services)
{
    for (const auto& entry : std::filesystem::directory_iterator(services.folder)) {
        std::ifstream file(entry.path());
        std::string name;
        std::vector<std::string> command;
        for (std::string line; std::getline(file, line);) {
            if (!valueOf(line, "Name").empty())
                name = valueOf(line, "Name");
            std::istringstream words(valueOf(line, "Exec"));
            for (std::string word; words >> word;)
                command.push_back(word);
        }
        std::string path = "/org/bus1/DBus/Name/" + name;
        std::replace(path.begin(), path.end(), '.', '_');
        if (name.empty() || command.empty() || !services.commands.emplace(path, command).second)
            continue;
        sd_bus_message* message = newCall(bus, "AddName");
        sd_bus_message_append(message, "osu", path.c_str(), name.c_str(), static_cast<std::uint32_t>(getuid()));
        call(bus, message);
    }
}

int onActivate(sd_bus_message* message, void* userData, sd_bus_error* /*error*/)
{
    const auto& commands = static_cast<Services*>(userData)->commands;
    const auto command = commands.find(sd_bus_message_get_path(message));
    if (command == commands.end() || fork() != 0)
        return 0;
    std::vector<char*> arguments;
    for (const std::string& argument : command->second)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    execv(arguments.front(), arguments.data());
    _exit(EXIT_FAILURE);
}

int onReload(sd_bus_message* message, void* userData, sd_bus_error* /*error*/)
{
    addNames(sd_bus_message_get_bus(message), *static_cast<Services*>(userData));
    return sd_bus_reply_method_return(message, nullptr);
}

/// Returns when the broker is gone.
int control(int controller, int listener, Services services)
{
    const sd_bus_vtable controllerTable[] = {
        SD_BUS_VTABLE_START(0),
        SD_BUS_METHOD("ReloadConfig", nullptr, nullptr, onReload, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_VTABLE_END,
    };
    sd_bus* bus = nullptr;
    sd_bus_new(&bus);
    sd_bus_set_fd(bus, controller, controller);
    sd_bus_add_object_vtable(bus, nullptr, "/org/bus1/DBus/Controller", "org.bus1.DBus.Controller", controllerTable,
                             &services);
    sd_bus_match_signal(bus, nullptr, nullptr, nullptr, "org.bus1.DBus.Name", "Activate", onActivate, &services);
    if (sd_bus_start(bus) < 0 || !addListener(bus, listener))
        return EXIT_FAILURE;
    close(listener);
    addNames(bus, services);
    std::cout << "ready" << std::endl;
    int result = 0;
    while (result >= 0) {
        result = sd_bus_process(bus, nullptr);
        if (result == 0)
            result = sd_bus_wait(bus, std::numeric_limits<std::uint64_t>::max());
    }
    sd_bus_close_unref(bus);
    return EXIT_SUCCESS;
}

void becomeBroker(int controller, char** limits, int limitCount)
{
    sd_id128_t id = {};
    sd_id128_randomize(&id);
    char machine[SD_ID128_STRING_MAX];
    sd_id128_to_string(id, machine);
    const std::string file = std::to_string(dup(controller)); // without the flag that closes it
    std::string words[] = {"dbus-broker", "--controller", file, "--machine-id", machine};
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.insert(arguments.end(), limits, limits + limitCount);
    arguments.push_back(nullptr);
    execvp(arguments.front(), arguments.data());
}

} // namespace

int main(int argc, char** argv)
{
    constexpr int firstLimit = 3;
    int ends[2];
    const int listener = argc >= firstLimit ? listenAt(argv[1]) : -1;
    if (listener < 0 || socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) != 0)
        return EXIT_FAILURE;
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        // Nobody waits for the services.
        static_cast<void>(std::signal(SIGCHLD, SIG_IGN));
        setenv("DBUS_SESSION_BUS_ADDRESS", (std::string("unix:path=") + argv[1]).c_str(), 1);
        return control(ends[1], listener, {argv[2], {}});
    }
    if (child > 0)
        becomeBroker(ends[0], argv + firstLimit, argc - firstLimit);
    return EXIT_FAILURE;
}
