// inet_fixture.exe: the program's internet client INetClass, driven from the
// command line for its end-to-end tests. The arguments are operations, run in
// order; each writes one flushed line to the log:
//
//   inet_fixture.exe --log <file> <operation> [arguments] ...
//
//   connect <server> <port> <user> <password>   "connect ok" or "connect failed"
//   mkdir <name>, cd <name>, send <local> <remote>, rename <from> <to>,
//   get <remote> <local>, delete <name>, rmdir <name>   "<operation> ok|failed"
//   list                                  "list <name> <name> ..." or "list failed"
//   showerror                             the last error's box; "showerror" once answered
//   disconnect                            "disconnect"
//
//   inet_fixture.exe --opened <file> <argument> ...
//
// stands in for the system's web browser: writes the arguments the shell
// started it with and the show command it was given, "<argument> ... show <n>".
#include <windows.h>

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "app/message_boxes_win.h"
#include "app/program_parts_win.h"
#include "updates/inet_class.h"

namespace {

using Args = std::vector<std::string>;

struct Operation {
    std::size_t arguments;
    std::function<std::string(INetClass&, const Args&)> run;
};

std::string Outcome(bool ok) { return ok ? "ok" : "failed"; }

const std::map<std::string, Operation>& Operations() {
    static const std::map<std::string, Operation> operations = {
        {"connect", {4, [](INetClass& net, const Args& a) {
                         return Outcome(net.FTPConnect(a[0], a[2], a[3], std::stoi(a[1])));
                     }}},
        {"mkdir", {1, [](INetClass& net, const Args& a) { return Outcome(net.CreateDir(a[0])); }}},
        {"cd", {1, [](INetClass& net, const Args& a) { return Outcome(net.CD(a[0])); }}},
        {"send", {2, [](INetClass& net, const Args& a) { return Outcome(net.Send(a[0], a[1])); }}},
        {"rename", {2, [](INetClass& net, const Args& a) { return Outcome(net.Rename(a[0], a[1])); }}},
        {"get", {2, [](INetClass& net, const Args& a) { return Outcome(net.GetFile(a[0], a[1])); }}},
        {"delete", {1, [](INetClass& net, const Args& a) { return Outcome(net.DelFile(a[0])); }}},
        {"rmdir", {1, [](INetClass& net, const Args& a) { return Outcome(net.DelDir(a[0])); }}},
        {"list", {0, [](INetClass& net, const Args&) {
                      auto names = net.EnumFiles();
                      std::string line;
                      for (const std::string& name : names.value_or(Args{})) line += (line.empty() ? "" : " ") + name;
                      return names ? line : "failed";
                  }}},
        {"showerror", {0, [](INetClass& net, const Args&) {
                           net.ShowError();
                           return std::string();
                       }}},
        {"disconnect", {0, [](INetClass& net, const Args&) {
                            net.Disconnect();
                            return std::string();
                        }}},
    };
    return operations;
}

int RecordOpened(const Args& args) {
    FILE* file = fopen(args[1].c_str(), "w");
    if (!file) return 1;
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    GetStartupInfoA(&startup);
    for (std::size_t i = 2; i < args.size(); ++i) fprintf(file, "%s ", args[i].c_str());
    fprintf(file, "show %d\n", (startup.dwFlags & STARTF_USESHOWWINDOW) ? startup.wShowWindow : -1);
    fclose(file);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    Args args(argv + 1, argv + argc);
    if (args.size() >= 2 && args[0] == "--opened") return RecordOpened(args);
    if (args.size() < 2 || args[0] != "--log") {
        fprintf(stderr, "usage: inet_fixture --log <file> <operation> [arguments] ...\n");
        return 1;
    }
    FILE* log = fopen(args[1].c_str(), "w");
    if (!log) return 1;
    WinSystem system;
    MessageBoxesWin boxes;
    INetClass net(system.platform, boxes, "Klickwerk Internet");
    for (std::size_t i = 2; i < args.size();) {
        auto found = Operations().find(args[i]);
        if (found == Operations().end() || i + found->second.arguments >= args.size()) {
            fprintf(log, "unknown %s\n", args[i].c_str());
            break;
        }
        Args operands(args.begin() + static_cast<long>(i) + 1,
                      args.begin() + static_cast<long>(i + 1 + found->second.arguments));
        std::string result = found->second.run(net, operands);
        fprintf(log, "%s%s%s\n", args[i].c_str(), result.empty() ? "" : " ", result.c_str());
        fflush(log);
        i += 1 + found->second.arguments;
    }
    fclose(log);
    return 0;
}
