// SPDX-License-Identifier: MIT
#include "tests/support/PrivateCups.h"

#include <csignal>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr const char* kScheduler = "/usr/sbin/cupsd";
constexpr const char* kAdministration = "/usr/sbin/lpadmin";
constexpr std::chrono::seconds kPatience{30}; // on a loaded machine

// "@" stands for the scheduler's folder.
constexpr std::string_view kFiles = R"(ServerRoot @
ServerBin @/bin
DataDir @/data
StateDir @/run
CacheDir @/cache
RequestRoot @/spool
TempDir @/tmp
AccessLog @/access_log
ErrorLog @/error_log
PageLog @/page_log
ServerKeychain @/keys
)";

constexpr std::string_view kSettings = R"(Listen @/cups.sock
LogLevel warn
Browsing No
BrowseLocalProtocols none
DefaultAuthType None
WebInterface No
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
)";

// The smallest possible driver; both filters do nothing.
constexpr std::string_view kDriver = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: UTF-8
*PCFileName: "TEST.PPD"
*Manufacturer: "@"
*Product: "(@)"
*PSVersion: "(3010.000) 0"
*ModelName: "@"
*ShortNickName: "@"
*NickName: "@"
*cupsFilter: "application/vnd.cups-raw 0 -"
*cupsFilter: "application/vnd.cups-command 0 -"
)ppd";

std::string filled(std::string_view form, std::string_view with)
{
    std::string text;
    for (const char c : form)
        text += c == '@' ? std::string(with) : std::string(1, c);
    return text;
}

bool accepts(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        throw std::runtime_error("too long for a socket: " + path);
    path.copy(address.sun_path, path.size());
    const int connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool taken =
        connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    close(connection);
    return taken;
}

} // namespace

bool PrivateCups::isInstalled()
{
    return access(kScheduler, X_OK) == 0 && access(kAdministration, X_OK) == 0;
}

PrivateCups::PrivateCups(const std::vector<Queue>& seeded, std::string encryptedAddress)
    : m_encryptedAddress(std::move(encryptedAddress))
{
    writeSettings();
    writeQueues(seeded);
    m_scheduler = std::make_unique<Process>(std::vector<std::string>{kScheduler, "-f", "-c",
                                                                     m_folder / "cupsd.conf", "-s",
                                                                     m_folder / "cups-files.conf"},
                                            Process::Environment{"HOME=" + home()});
    awaitSocket();
}

PrivateCups::~PrivateCups()
{
    stop();
}

void PrivateCups::writeSettings() const
{
    for (const char* name : {"bin", "bin/backend", "data", "run", "cache", "spool", "tmp", "home",
                             "ppd", "drivers", "keys"})
        fs::create_directory(m_folder.path() / name);
    // A scheduler that root runs hands work to another user, who needs access to the folder.
    fs::permissions(m_folder.path(), fs::perms(0755));
    for (const std::string scheme : {"lpd", "socket", "usb", "ipp", "tzrq"}) {
        m_folder.write("bin/backend/" + scheme, "#!/bin/sh\nexit 0\n");
        fs::permissions(m_folder.path() / "bin/backend" / scheme, fs::perms(0755));
    }
    m_folder.write("cups-files.conf", filled(kFiles, m_folder.path().string()));
    auto settings = filled(kSettings, m_folder.path().string());
    if (!m_encryptedAddress.empty())
        settings += "Listen " + m_encryptedAddress + "\n";
    m_folder.write("cupsd.conf", settings);
}

void PrivateCups::writeQueues(const std::vector<Queue>& queues) const
{
    std::string text;
    for (const auto& queue : queues) {
        const auto& info = queue.description.empty() ? queue.identifier : queue.description;
        text += "<Printer " + queue.identifier + ">\nInfo " + info + "\nLocation " + queue.location
            + "\nDeviceURI " + queue.deviceUri + "\nState Idle\nAccepting Yes\nShared No\n"
            + "</Printer>\n";
        m_folder.write("ppd/" + queue.identifier + ".ppd", filled(kDriver, queue.makeAndModel));
    }
    if (!queues.empty())
        m_folder.write("printers.conf", text);
}

void PrivateCups::awaitSocket()
{
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!accepts(socket())) {
        if (m_scheduler->wait(std::chrono::seconds(0)) != -1
            || std::chrono::steady_clock::now() > end)
            throw std::runtime_error("no scheduler: " + m_scheduler->errors()
                                     + readFile(m_folder / "error_log"));
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void PrivateCups::administer(std::vector<std::string> words) const
{
    words.insert(words.begin(), kAdministration);
    Process administration(words, environment());
    const int code = administration.wait(kPatience);
    if (code != 0)
        throw std::runtime_error("lpadmin: " + std::to_string(code) + ", "
                                 + administration.errors());
}

void PrivateCups::add(const Queue& queue)
{
    const auto driver = "drivers/" + queue.identifier + ".ppd";
    m_folder.write(driver, filled(kDriver, queue.makeAndModel));
    std::vector<std::string> words = {"-p", queue.identifier,  "-v", queue.deviceUri,
                                      "-P", m_folder / driver, "-L", queue.location};
    if (!queue.description.empty())
        words.insert(words.end(), {"-D", queue.description});
    words.emplace_back("-E");
    administer(words);
}

void PrivateCups::addClass(const std::string& name, const std::string& member)
{
    administer({"-p", member, "-c", name});
}

void PrivateCups::remove(const std::string& identifier)
{
    administer({"-x", identifier});
}

bool PrivateCups::hasEncrypted() const
{
    return !fs::is_empty(m_folder.path() / "keys");
}

void PrivateCups::stop()
{
    if (m_scheduler == nullptr)
        return;
    m_scheduler->signal(SIGTERM);
    m_scheduler->wait(kPatience);
    m_scheduler.reset(); // killed if it did not end
    std::error_code ignored;
    fs::remove(socket(), ignored);
}
