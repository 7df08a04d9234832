// SPDX-License-Identifier: MIT
#include "UI/Support/Personal.h"

#include <array>
#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace {

void take(std::vector<std::string>& values, const char* value)
{
    if (value != nullptr && *value != '\0')
        values.emplace_back(value);
}

void takeAccount(Personal& personal)
{
    passwd account{};
    passwd* found = nullptr;
    std::array<char, 16384> room{}; // for every text of an account
    if (getpwuid_r(getuid(), &account, room.data(), room.size(), &found) != 0 || found == nullptr)
        return;
    take(personal.users, found->pw_name);
    take(personal.homes, found->pw_dir);
    const std::string person = found->pw_gecos != nullptr ? found->pw_gecos : "";
    take(personal.users, person.substr(0, person.find(',')).c_str()); // then room and telephone
}

} // namespace

Personal personalOfSystem()
{
    Personal personal;
    for (const auto* name : {"USER", "LOGNAME", "SUDO_USER"})
        take(personal.users, std::getenv(name));
    take(personal.homes, std::getenv("HOME"));
    takeAccount(personal);
    std::array<char, 256> name{};
    if (gethostname(name.data(), name.size() - 1) == 0)
        personal.computer = name.data();
    return personal;
}
