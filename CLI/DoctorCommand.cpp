#include "CLI/Commands.h"
#include "CLI/Doctor.h"
#include "UI/Package/SystemCheck.h"
#include "UI/Run/LogFolder.h"
#include "UI/vym_etc.h"

#include <algorithm>
#include <array>

namespace doctor {

Finding ok(std::string check, std::string message)
{
    return {std::move(check), FindingStatus::ok, std::move(message), {}};
}

Finding warning(std::string check, std::string message, std::string mend)
{
    return {std::move(check), FindingStatus::warning, std::move(message), std::move(mend)};
}

Finding problem(std::string check, std::string message, std::string mend)
{
    return {std::move(check), FindingStatus::problem, std::move(message), std::move(mend)};
}

Finding skipped(std::string check, std::string message)
{
    return {std::move(check), FindingStatus::skipped, std::move(message), {}};
}

namespace {

Finding packageFinding(const OpenedPackage& opened)
{
    if (!opened.package.has_value())
        return problem("package", opened.problem, "name a package with --package");
    if (auto unfit = unfitForUpdate(*opened.package); !unfit.empty())
        return problem("package", std::move(unfit), "get the package again from its maker");
    return ok("package",
              "The package is for " + opened.package->model + " and carries "
                  + std::to_string(opened.package->firmware.size()) + " firmware.");
}

Finding systemFinding(const std::optional<PackageFacts>& package)
{
    if (!package.has_value())
        return skipped("system", "Without a package its bounds are not known.");
    const SystemBounds bounds = package->lowestSystem.has_value()
        ? SystemBounds{static_cast<std::int32_t>(package->highestSystem.value_or(-1)),
                       static_cast<std::int32_t>(*package->lowestSystem)}
        : SystemBounds{};
    const auto system = static_cast<std::int32_t>(get_system_version());
    const auto remark = systemRemark(system, bounds);
    if (judgeSystem(system, bounds) == SystemVerdict::unsupported)
        return warning("system", remark, "use vymkit-cli: the wizard refuses this system");
    return ok("system", remark.empty() ? "The package is for this system." : remark);
}

std::optional<int> portOf(const Options& options, const std::optional<PackageFacts>& package)
{
    if (options.port.has_value())
        return options.port;
    return package.has_value() ? std::optional(package->portNumber) : std::nullopt;
}

} // namespace

} // namespace doctor

const char* findingStatusName(FindingStatus status)
{
    constexpr std::array kNames = {"ok", "warning", "problem", "skipped"};
    return kNames.at(static_cast<std::size_t>(status));
}

Outcome runDoctor(Workplace& place)
{
    using namespace doctor;
    std::vector<Finding> findings;
    const auto opened = openPackage(place.options.package);
    findings.push_back(packageFinding(opened));
    findings.push_back(skipped("signature", "There is no key to check the package with."));
    findings.push_back(systemFinding(opened.package));
    Patient patient;
    checkQueues(place, opened.package, patient, findings);
    checkUsb(surveyUsbPrinters(surveyedVendor(), ""), "", findings);
    checkNetwork(patient, portOf(place.options, opened.package), findings);
    findings.push_back(checkSuspend());
    findings.push_back(checkLogFolder(logFolder()));

    const auto problems = std::count_if(findings.begin(), findings.end(), [](const auto& each) {
        return each.status == FindingStatus::problem;
    });
    Outcome outcome;
    outcome.command = Command::doctor;
    outcome.exitCode = problems == 0 ? exitcode::kDone : exitcode::kObstacles;
    outcome.verdict = problems == 0 ? Verdict::ready : Verdict::obstacles;
    outcome.name = problems == 0 ? "ready" : "obstacles";
    outcome.message = problems == 0 ? "Nothing that an update needs is missing."
        : problems == 1             ? "1 thing would hinder an update."
                                    : std::to_string(problems) + " things would hinder an update.";
    outcome.findings = std::move(findings);
    return outcome;
}
