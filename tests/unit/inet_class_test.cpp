#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/test_app.h"
#include "updates/inet_class.h"

namespace {

using Calls = std::vector<std::string>;

TEST(INetClass, AddressesWithoutASchemeAreFetchedOverHttp) {
    const std::pair<const char*, const char*> cases[] = {
        {"host/CurVersion.txt", "http://host/CurVersion.txt"},
        {"http://host/a", "http://host/a"},
        {"https://host/a", "https://host/a"},
        {"ftp://host/a", "ftp://host/a"},
        {"HTTP://host/a", "HTTP://host/a"},
        {"127.0.0.1:8000/a", "http://127.0.0.1:8000/a"},
        {"://host", "http://://host"},
        {"a b://host", "http://a b://host"},
    };
    for (const auto& [url, address] : cases) EXPECT_EQ(WebAddress(url), address);
}

TEST(INetClass, OpenUrlReadsThousandByteChunksUnderTheWaitPointerAndClosesEveryHandle) {
    TestApp t;
    std::string page = " \r\n" + std::string(1500, 'a') + std::string(700, 'b') + " \r\n";
    t.internet.pages["http://host/page"] = page;
    {
        INetClass net(t.app.os, t.boxes, t.app.appTitle);
        EXPECT_EQ(net.OpenURL("host/page", 5000), std::string(1500, 'a') + std::string(700, 'b'));
        EXPECT_EQ(t.windows.calls, (Calls{"wait pointer", "arrow pointer"}));
    }
    EXPECT_EQ(t.internet.calls, (Calls{"session Klickwerk", "open http://host/page 2684354560 5000", "read 1000",
                                       "read 1000", "read 1000", "read 1000", "close 2", "close 1"}));
    EXPECT_TRUE(t.internet.openHandles.empty());
}

TEST(INetClass, OpenUrlStopsReadingWhenTheTimeIsUp) {
    TestApp t;
    t.internet.endlessPage = "http://host/endless";
    t.internet.msPerRead = 400;
    INetClass net(t.app.os, t.boxes, t.app.appTitle);
    EXPECT_EQ(net.OpenURL("http://host/endless", 2000), std::string(5000, 'x'));
    EXPECT_EQ(t.clock.nowMs, 2000);
}

TEST(INetClass, AnUnreachableServerGivesNothingAndItsErrorCanBeShown) {
    TestApp t;
    INetClass net(t.app.os, t.boxes, t.app.appTitle);
    EXPECT_EQ(net.OpenURL("http://nowhere/a", 5000), "");
    net.ShowError();
    EXPECT_EQ(t.boxes.shown, (ShownBoxes{{"Error 12029: A connection with the server could not be established",
                                          "Klickwerk v1.0", BoxStyle::Error}}));
}

TEST(INetClass, FtpOperationsReachTheServerAndAFailureKeepsItsReason) {
    TestApp t;
    t.internet.refused = {"rmdir"};
    {
        INetClass net(t.app.os, t.boxes, t.app.appTitle);
        ASSERT_TRUE(net.FTPConnect("127.0.0.1", "kw", "secret", 2121));
        EXPECT_TRUE(net.CreateDir("kw") && net.CD("kw") && net.Send("C:\\a.txt", "a.txt") &&
                    net.Rename("a.txt", "b.txt") && net.GetFile("b.txt", "C:\\b.txt") && net.DelFile("b.txt"));
        EXPECT_EQ(net.EnumFiles(), (std::vector<std::string>{"a.txt", "b.txt"}));
        t.internet.error = {12003, "550 No such file or directory."};
        EXPECT_FALSE(net.DelDir("kw"));
        t.internet.error = {};
        net.ShowError();
    }
    EXPECT_EQ(t.boxes.Texts(), (Calls{"Error 12003: 550 No such file or directory."}));
    EXPECT_EQ(t.internet.calls, (Calls{"session Klickwerk", "connect 127.0.0.1:2121 kw secret", "mkdir kw", "cd kw",
                                       "put C:\\a.txt a.txt", "rename a.txt b.txt", "get b.txt C:\\b.txt",
                                       "delete b.txt", "list *.*", "rmdir kw", "close 2", "close 1"}));
}

}  // namespace
