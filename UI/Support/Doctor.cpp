// SPDX-License-Identifier: MIT
#include "UI/Support/Doctor.h"

#include "UI/Package/SystemCheck.h"
#include "UI/vym_etc.h"

#include <algorithm>
#include <array>

const char* findingStatusName(FindingStatus status)
{
    constexpr std::array kNames = {"ok", "warning", "problem", "skipped"};
    return kNames.at(static_cast<std::size_t>(status));
}

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
    if (opened.state == PackageState::notTrusted)
        return skipped("package", "A package that is not trusted is not read.");
    if (!opened.package.has_value())
        return problem("package", opened.problem, "name a package with --package");
    if (auto unfit = unfitForUpdate(*opened.package); !unfit.empty())
        return problem("package", std::move(unfit), "get the package again from its maker");
    return ok("package",
              "The package is for " + opened.package->model + " and carries "
                  + std::to_string(opened.package->firmware.size()) + " firmware.");
}

Finding signatureFinding(const OpenedPackage& opened)
{
    if (opened.state == PackageState::notTrusted)
        return problem("signature", opened.problem,
                       "get the package and its signature from its maker");
    if (!opened.package.has_value())
        return skipped("signature", "There is no package that could be checked.");
    const auto& signature = opened.package->signature;
    if (!signature.has_value())
        return skipped("signature",
                       "There is no key to check the package with: none in "
                           + std::string(kKeyFolder) + ", and none was given.");
    return ok("signature",
              "The package is signed with " + signature->key + " (" + signature->comment + ").");
}

Finding systemFinding(const std::optional<PackageFacts>& package)
{
    if (!package.has_value())
        return skipped("system", "Without a package its bounds are not known.");
    const auto bounds = boundsOf(*package);
    const auto system = static_cast<std::int32_t>(get_system_version());
    const auto remark = systemRemark(system, bounds);
    if (judgeSystem(system, bounds) == SystemVerdict::unsupported)
        return warning("system", remark, "use vymkit-cli: the wizard refuses this system");
    return ok("system", remark.empty() ? "The package is for this system." : remark);
}

std::optional<int> portOf(const Request& request, const std::optional<PackageFacts>& package)
{
    if (request.port.has_value())
        return request.port;
    return package.has_value() ? std::optional(package->portNumber) : std::nullopt;
}

} // namespace

void checkPackage(const OpenedPackage& opened, std::vector<Finding>& findings)
{
    findings.push_back(packageFinding(opened));
    findings.push_back(signatureFinding(opened));
}

std::vector<Finding> examine(const OpenedPackage& opened, const Request& request)
{
    std::vector<Finding> findings;
    checkPackage(opened, findings);
    findings.push_back(systemFinding(opened.package));
    Patient patient;
    checkQueues(request, opened.package.has_value(), patient, findings);
    checkUsb(surveyUsbPrinters(surveyedVendor(), ""), "", findings);
    checkNetwork(patient, portOf(request, opened.package), findings);
    findings.push_back(checkSuspend(request.program));
    findings.push_back(checkLogFolder(request.logFolder));
    return findings;
}

bool hasProblem(const std::vector<Finding>& findings)
{
    return std::any_of(findings.begin(), findings.end(),
                       [](const auto& each) { return each.status == FindingStatus::problem; });
}

} // namespace doctor
