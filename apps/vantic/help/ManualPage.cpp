#include "help/ManualPage.h"

#include "help/Topic.h"
#include "operations/CommonOptions.h"
#include "user/UserOperation.h"

namespace vantic {

namespace {

/// Text escaped for man(7), in which backslashes and dashes are special, and dots and quotes at the start of a line.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (result.empty() && (c == '.' || c == '\'')) result += "\\&";
        if (c == '\\') {
            result += "\\e";
        } else if (c == '-') {
            result += "\\-";
        } else {
            result += c;
        }
    }
    return result;
}

std::string heading(const std::string& name, std::string_view summary) {
    return ".TH \"" + name + "\" 1 \"\" \"VanticRestKit " VRK_VERSION "\"\n.nh\n.ad l\n.SH NAME\n" +
           escaped(name) + " \\- " + escaped(summary) + "\n.SH SYNOPSIS\n";
}

std::string section(std::string_view title) { return ".SH " + std::string(title) + "\n"; }

std::string entry(const std::string& name, const std::string& meaning) {
    return ".TP\n.B " + escaped(name) + "\n" + escaped(meaning) + "\n";
}

std::string entries(std::span<const Option> options) {
    std::string text;
    for (const Option& option : options) text += entry(nameAndValue(option), helpOf(option));
    return text;
}

std::string operations(bool areForUsers) {
    std::string text;
    for (const Topic& topic : allTopics()) {
        if (topic.isForUser != areForUsers) continue;
        for (const Form& form : topic.forms) {
            text += ".SS \"" + std::string(topic.name) + "\"\n" + escaped(form.summary) + "\n";
            text += ".PP\n.B " + escaped(topic.name) + escaped(synopsisOf(form.options)) + "\n" +
                    entries(form.options);
        }
    }
    return text;
}

std::string commonSections() {
    return section("OPTIONS OF EVERY OPERATION") + entries(CommonOptions::options()) +
           section("ENVIRONMENT") +
           entry("VANTIC_BASE_URL", "the address of the service if --base-url is not given");
}

std::string endOfPage(const std::string& seeAlso) {
    return section("EXIT STATUS") + entry("0", "success") +
           entry("1",
                 "the request, the service or the document failed; one line on standard error says why") +
           entry("2", "wrong usage") + section("SEE ALSO") + seeAlso;
}

std::string invocation(const Command& command) {
    const std::string options = synopsisOf(command.options);
    std::string text = ".B vantic " + std::string(command.name) + "\n";
    if (!options.empty()) text += escaped(options.substr(1)) + "\n";
    if (!command.synopsis.empty()) text += ".I " + escaped(command.synopsis) + "\n";
    return text + ".br\n";
}

}  // namespace

std::string manualPage() {
    std::string text =
        heading("vantic", "decodes documents, prints requests and loads from a video-on-demand service");
    for (const Command& command : allCommands()) text += invocation(command);
    text += section("COMMANDS");
    for (const Command& command : allCommands()) {
        text += entry("vantic " + std::string(command.name), std::string(command.summary));
    }
    text += entry("vantic --version", "prints the version");
    text += section("FILES") + "Without FILE, or with \\- for it, a document is read from standard input.\n" +
            commonSections();
    std::string others;
    for (const Command& command : allCommands()) {
        others += ".BR " + escaped("vantic-" + std::string(command.name)) + " (1)\n";
    }
    return text + endOfPage(others);
}

std::string manualPageOf(const Command& command) {
    using Takes = Command::Takes;
    const bool forAll = command.takes == Takes::anyOperation;
    std::string text = heading("vantic-" + std::string(command.name), command.summary) + invocation(command);
    if (!command.options.empty()) text += section("OPTIONS") + entries(command.options);
    if (command.takes == Takes::operation || forAll) text += section("OPERATIONS") + operations(false);
    if (command.takes == Takes::userOperation || forAll) {
        text += section("OPERATIONS FOR USERS") + operations(true) + entries(userOptions());
        if (forAll) text += entries(tokenOption());
    }
    if (forAll || command.takes == Takes::operation || command.takes == Takes::userOperation) {
        text += commonSections();
    }
    return text + endOfPage(".BR vantic (1)\n");
}

}  // namespace vantic
