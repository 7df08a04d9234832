// SPDX-License-Identifier: MIT
#include "CLI/JsonText.h"
#include "CLI/Output.h"
#include "CLI/Report.h"
#include "UI/Support/UdevRule.h"

#include <array>
#include <cmath>

namespace {

constexpr int kSchemaVersion = 1;

const char* ruleName(yesno_type rule)
{
    constexpr std::array<const char*, 4> kNames = {"none", "newer", "any", "newer-or-same"};
    return rule < kNames.size() ? kNames.at(rule) : "none";
}

// Seconds and percents in tenths: finer steps are of no use.
double inTenths(double value)
{
    return std::round(value * 10) / 10;
}

template <class T> Json orNull(const std::optional<T>& value)
{
    return value.has_value() ? Json(*value) : Json();
}

Json orNull(const std::string& text)
{
    return text.empty() ? Json() : Json(text);
}

// JSON has no infinity; a percentage that is not finite is unknown.
Json toProgress(const std::optional<double>& progress)
{
    const auto tenths = progress.has_value() ? inTenths(*progress) : NAN;
    return std::isfinite(tenths) ? Json(tenths) : Json();
}

template <class Item> Json listOf(const std::vector<Item>& items, Json (*toJson)(const Item&))
{
    std::vector<Json> list;
    list.reserve(items.size());
    for (const auto& item : items)
        list.push_back(toJson(item));
    return Json::array(list);
}

Json firmwareToJson(const PackagedFirmware& firmware)
{
    return {{"number", firmware.number},
            {"name", firmware.name},
            {"version", firmware.version},
            {"display_name", firmware.displayName},
            {"display_version", firmware.displayVersion},
            {"name_in_printer", firmware.nameInPrinter},
            {"compatible_version", orNull(firmware.compatibleVersion)},
            {"file", firmware.file},
            {"file_bytes", orNull(firmware.bytes)}};
}

// A firmware that broke off at its first bytes may have gone out; it is not called sent.
bool isSent(const FirmwareOutcome& outcome)
{
    return outcome.bytesWentOut && (outcome.bytesSent != 0 || outcome.confirmed);
}

Json outcomeToJson(const FirmwareOutcome& outcome)
{
    const bool isDecided = outcome.decision != Decision::undecided;
    return {{"number", outcome.firmware.number},
            {"name", outcome.firmware.name},
            {"version", outcome.firmware.version},
            {"display_name", outcome.firmware.displayName},
            {"display_version", outcome.firmware.displayVersion},
            {"installed_version", orNull(outcome.installed.value_or(""))},
            {"reached", outcome.reached},
            {"decision", decisionName(outcome.decision)},
            {"reason", isDecided ? Json(reasonName(outcome.reason)) : Json()},
            {"result_code", orNull(outcome.resultCode)},
            {"sent", isSent(outcome)},
            {"bytes_sent", outcome.bytesSent},
            {"bytes_total", outcome.bytesTotal},
            {"confirmed", outcome.confirmed},
            {"warning", orNull(outcome.warning)},
            {"installed_after", orNull(outcome.installedAfter.value_or(""))}};
}

Json packageToJson(const PackageFacts& package)
{
    Json json = {{"folder", package.folder},
                 {"model", orNull(package.model)},
                 {"product", orNull(package.product)},
                 {"model_names", package.modelNames},
                 {"driver_names", package.driverNames},
                 {"device_id_models", package.deviceIdModels},
                 {"ports", package.ports},
                 {"port_number", package.portNumber},
                 {"enter_seconds", package.enterSeconds},
                 {"exit_seconds", package.exitSeconds},
                 {"update_seconds", package.updateSeconds},
                 {"needs_enter_operation", package.needsEnterOperation == yesno_yes},
                 {"needs_exit_operation", package.needsExitOperation == yesno_yes},
                 {"version_rule", ruleName(package.versionRule)},
                 {"special_commands", package.specialCommands == yesno_yes},
                 {"lowest_system", orNull(package.lowestSystem)},
                 {"highest_system", orNull(package.highestSystem)},
                 {"firmware", listOf(package.firmware, firmwareToJson)}};
    if (package.signature) // only where there was a key to check it with
        json.add(
            "signature",
            {{"key", package.signature->key}, {"trusted_comment", package.signature->comment}});
    return json;
}

Json printerToJson(const ListedPrinter& printer)
{
    return {{"name", orNull(printer.name)},
            {"identifier", orNull(printer.identifier)},
            {"address", orNull(printer.address)},
            {"connection", printer.connection},
            {"model", orNull(printer.model)},
            {"found_as", foundAsName(printer.foundAs)},
            {"reason", printerReasonName(printer.reason)},
            {"explanation", reasonText(printer)},
            {"same_as", orNull(printer.sameAs)},
            {"answered_model", orNull(printer.answeredModel)},
            {"warning", orNull(printer.warning)}};
}

Json udevRule()
{
    return {{"file", udevRuleFile()}, {"line", udevRuleLine()}};
}

Json resultToJson(const Outcome& outcome)
{
    Json json = {
        {"type", "result"},
        {"schema_version", kSchemaVersion},
        {"command", commandName(outcome.command)},
        {"exit_code", outcome.exitCode},
        {"name", outcome.name},
        {"result_code", orNull(outcome.resultCode)},
        {"message", outcome.message},
        {"next", nextStepName(outcome.next)},
        {"seconds", inTenths(outcome.seconds)},
        {"firmware_bytes_sent", outcome.areBytesUnknown ? Json() : Json(outcome.bytesWentOut)},
        {"address", orNull(outcome.address)},
        {"printer_name", orNull(outcome.printerName)},
        {"printer_model", orNull(outcome.printerModel)},
        {"firmware", listOf(outcome.firmware, outcomeToJson)},
        {"package", outcome.package ? packageToJson(*outcome.package) : Json()},
        {"printers", outcome.printers ? listOf(outcome.printers->list, printerToJson) : Json()},
        {"udev_rule", outcome.notPermitted ? udevRule() : Json()},
        {"warning", orNull(outcome.warning)},
        {"verdict", orNull(outcome.verification)}};
    if (outcome.isOfFleet)
        json.add("printer", Json()); // every printer has a result of its own
    return json;
}

Json summaryToJson(const Outcome& outcome)
{
    Json json = {{"type", "summary"},
                 {"schema_version", kSchemaVersion},
                 {"command", commandName(outcome.command)}};
    for (std::size_t i = 0; i < kMemberClasses; ++i) {
        std::vector<Json> names;
        for (const auto& entry : outcome.fleet->classes.at(i))
            names.emplace_back(entry.printer);
        json.add(memberClassName(static_cast<MemberClass>(i)), Json::array(names));
    }
    return json;
}

Json statusToJson(const StatusView& view)
{
    const auto& record = view.record;
    return {{"type", "status"},
            {"schema_version", kSchemaVersion},
            {"seconds", inTenths(view.seconds)},
            {"state", static_cast<std::uint32_t>(record.m_updateState)},
            {"state_name", stateName(record.m_updateState)},
            {"result_code", record.m_result},
            {"firmware_number", record.m_firmwareNumber},
            {"firmware_count", view.firmwareCount},
            {"firmware_name", orNull(view.firmwareName)},
            {"bytes_done", record.m_bytesDone},
            {"bytes_total", record.m_bytesTotal},
            {"progress", toProgress(view.step.progress)},
            {"updated_count", record.m_updatedCount},
            {"check_state_supported", record.m_checkStateSupported != 0}};
}

Json runToJson(const PastRun& run)
{
    return {{"type", "run"},
            {"schema_version", kSchemaVersion},
            {"number", run.number},
            {"started", orNull(run.started)},
            {"program", orNull(run.program)},
            {"printer_name", orNull(run.printer)},
            {"address", orNull(run.address)},
            {"package_folder", orNull(run.package)},
            {"result", orNull(run.result)},
            {"finished", run.hasEnded},
            {"file", run.file},
            {"verdict", orNull(run.verdict)}};
}

Json findingToJson(const Finding& finding)
{
    return {{"type", "finding"},          {"schema_version", kSchemaVersion},
            {"check", finding.check},     {"status", findingStatusName(finding.status)},
            {"message", finding.message}, {"mend", orNull(finding.mend)}};
}

const char* causeName(StopCause cause)
{
    if (cause == StopCause::stall)
        return "stall-limit";
    return cause == StopCause::deadline ? "deadline" : "signal";
}

class JsonReport : public Report {
public:
    explicit JsonReport(int descriptor) : m_output(descriptor) { }

    void waiting(const std::string& /*stage*/, double /*seconds*/) override { }

    void status(const StatusView& view) override
    {
        if (m_last.has_value() && isSameRecord(*m_last, view.record))
            return;
        m_last = view.record;
        m_output.writeProgress(lineOf(statusToJson(view)));
    }

    void warn(const std::string& /*text*/) override { } // the result has it

    void quiet(double silence, double seconds) override
    {
        m_output.writeProgress(lineOf({{"type", "quiet"},
                                       {"schema_version", kSchemaVersion},
                                       {"seconds", inTenths(seconds)},
                                       {"quiet_seconds", inTenths(silence)}}));
    }

    void stopping(StopCause cause, double seconds) override
    {
        m_output.writeProgress(stoppingAsJson(cause, seconds) + "\n");
    }

    void finish(const Outcome& outcome) override
    {
        for (const auto& run : outcome.pastRuns)
            m_output.write(lineOf(runToJson(run)));
        for (const auto& finding : outcome.findings)
            m_output.write(lineOf(findingToJson(finding)));
        if (!outcome.log.empty())
            m_output.write(lineOf({{"type", outcome.command == Command::report ? "report" : "log"},
                                   {"schema_version", kSchemaVersion},
                                   {"text", outcome.log}}));
        if (outcome.fleet)
            m_output.write(lineOf(summaryToJson(outcome)));
        m_output.write(lineOf(resultToJson(outcome)));
        m_output.drain();
    }

    void finishBriefly(std::string_view line) override { m_output.writeLast(line); }

private:
    static std::string lineOf(const Json& json) { return json.text() + "\n"; }

    Output m_output;
    std::optional<tag_devinfo> m_last;
};

} // namespace

std::unique_ptr<Report> makeJsonReport(int outputDescriptor)
{
    return std::make_unique<JsonReport>(outputDescriptor);
}

std::string resultAsJson(const Outcome& outcome)
{
    return resultToJson(outcome).text();
}

std::string stoppingAsJson(StopCause cause, double seconds)
{
    const Json json = {{"type", "stopping"},
                       {"schema_version", kSchemaVersion},
                       {"seconds", inTenths(seconds)},
                       {"cause", causeName(cause)}};
    return json.text();
}
