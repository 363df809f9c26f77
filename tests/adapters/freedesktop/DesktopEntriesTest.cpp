#include "adapters/freedesktop/DesktopFolders.h"

#include <gmock/gmock.h>

namespace larkspan::freedesktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DesktopEntriesTest : public DesktopFolders {};

TEST_F(DesktopEntriesTest, ReadsAnEntry) {
    folder_.write("data/applications/org.example.Editor.desktop", R"(# a comment
[Desktop Entry]
Type=Application
Name=Editor
Name[fr]=Éditeur
Name[de]=Texte\sbearbeiten
Name[de_AT@euro]=not this
Comment[de]=Schreibt
Icon = editor
Exec=editor "a \\"b" %U
Path=/tmp
Categories=Utility;TextEditor;
MimeType=text/plain;a\;b
Terminal=true
StartupWMClass=Ed
Actions=New;Missing;Empty;
no line of a key

[Desktop Action New]
Name=New Window
Name[de]=Neues Fenster
Exec=editor --new
[Desktop Action Unlisted]
Name=Never
Exec=never
[Desktop Action Empty]
Exec=empty
[Other Group]
Name=Other
)");
    const auto entry = entries_.find("org.example.Editor");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "Texte bearbeiten");
    EXPECT_EQ(entry->icon, "editor");
    EXPECT_EQ(entry->exec, R"(editor "a \"b" %U)");
    EXPECT_EQ(entry->workingFolder, "/tmp");
    EXPECT_EQ(entry->startupWMClass, "Ed");
    EXPECT_THAT(entry->categories, ElementsAre("Utility", "TextEditor"));
    EXPECT_THAT(entry->mimeTypes, ElementsAre("text/plain", "a;b"));
    EXPECT_TRUE(entry->isTerminal);
    EXPECT_TRUE(entry->isDisplayed);
    EXPECT_THAT(entry->actions,
                ElementsAre(DesktopAction{"New", "Neues Fenster", "", "editor --new"}));
    EXPECT_EQ(entries_.atPath(entry->path), entry);
}

TEST_F(DesktopEntriesTest, ListsInstalledAndDisplayedEntries) {
    struct Case {
        const char* keys;
        bool isInstalled;
        bool isDisplayed;
    };
    const Case cases[] = {
        {"Exec=a", true, true},
        {"NoDisplay=true", true, false},
        {"Hidden=true", false, false},
        {"OnlyShowIn=KDE;XFCE;", true, true},
        {"OnlyShowIn=KDE;GNOME;", true, false},
        {"NotShowIn=XFCE;", true, false},
        {"NotShowIn=KDE;", true, true},
        {"TryExec=there", true, true},
        {"TryExec=not-there", false, false},
        {"TryExec=/not/there", false, false},
        {"Type=Link", false, false},
    };
    installProgram("there");
    int number = 0;
    for (const auto& each : cases) {
        install("app" + std::to_string(number++), each.keys);
    }
    number = 0;
    for (const auto& each : cases) {
        const auto entry = entries_.find("app" + std::to_string(number++));
        EXPECT_EQ(entry != nullptr, each.isInstalled) << each.keys;
        EXPECT_EQ(entry && entry->isDisplayed, each.isDisplayed) << each.keys;
    }
}

TEST_F(DesktopEntriesTest, TheUsersFolderComesBeforeTheSystems) {
    install("editor", "Exec=theirs");
    install("game", "Exec=game");
    install("kde4/tool", "Exec=tool");
    const std::string own = "home/.local/share/applications/";
    folder_.write(own + "editor.desktop", "[Desktop Entry]\nType=Application\nExec=ours\n");
    folder_.write(own + "game.desktop", "[Desktop Entry]\nHidden=true\n");
    EXPECT_EQ(entries_.find("editor")->exec, "ours");
    EXPECT_EQ(entries_.find("editor")->name, "editor") << "without a name, the id is used";
    EXPECT_FALSE(entries_.find("game"));
    EXPECT_TRUE(entries_.find("kde4-tool"));
    EXPECT_EQ(entries_.all().size(), 2u);
}

TEST_F(DesktopEntriesTest, MatchesAWindowToItsApplication) {
    install("firefox-esr", "Exec=/usr/lib/firefox-esr/firefox-esr %u\nStartupWMClass=firefox-esr");
    install("google-chrome", "Exec=chrome %U\nStartupWMClass=Google-chrome");
    install("chrome-mail", "Exec=chrome --app-id=x\nStartupWMClass=crx_mail");
    install("org.gnome.Nautilus", "Exec=nautilus");
    install("org.Other.nautilus-helper", "Exec=other");
    install("gimp", "Exec=gimp-2.10 %U");
    install("hidden-term", "Exec=xterm\nStartupWMClass=XTerm\nNoDisplay=true");
    install("debian-xterm", "Exec=xterm\nStartupWMClass=XTerm");
    install("viewer", "Exec=viewer-2 %f");
    install("viewer-terminal", "Exec=viewer-2\nTerminal=true");
    install("office-calc", "Exec=office --calc %U");
    install("office-writer", "Exec=office --writer %U");
    install("script", "Exec=interpreter /usr/share/script");
    for (const auto* program : {"viewer-2", "office", "interpreter"}) {
        installProgram(program);
    }
    const std::string bin = std::filesystem::canonical(folder_.path("bin")).string() + "/";
    struct Case {
        std::string instance;
        std::string className;
        std::string executable;
        std::string id;
    };
    const Case cases[] = {
        {"Navigator", "firefox-esr", "", "firefox-esr"},
        {"google-chrome", "Google-chrome", "", "google-chrome"},
        {"crx_mail", "Google-chrome", "", "chrome-mail"},
        {"org.gnome.Nautilus", "Org.gnome.Nautilus", "", "org.gnome.Nautilus"},
        {"nautilus", "Nautilus", "", "org.gnome.Nautilus"},
        {"x", "Gimp", "", "gimp"},
        {"gimp-2.10", "Gimp-2.10", "", ""},
        {"xterm", "XTerm", "", "debian-xterm"},
        {"helper", "", "", ""},
        {"", "", bin + "viewer-2", "viewer"},
        {"", "", "/elsewhere/viewer-2", ""},
        {"", "", bin + "office", ""},
        {"", "", bin + "interpreter", ""},
        {"", "", "", ""},
        {"name", "Name", "", ""},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(idOf(entries_.match(each.instance, each.className, each.executable)), each.id)
            << each.instance << ", " << each.className << ", " << each.executable;
    }
}

TEST_F(DesktopEntriesTest, FollowsInstallations) {
    install("first", "Exec=a");
    int changes = 0;
    const Handle subscription = entries_.subscribe([&] { ++changes; });
    EXPECT_EQ(entries_.all().size(), 1u);
    install("second", "Exec=b");
    install("third", "Exec=b");
    ASSERT_TRUE(qt::runUntil([&] { return changes > 0; }));
    EXPECT_EQ(changes, 1) << "one installation is announced once";
    EXPECT_EQ(entries_.all().size(), 3u);
    std::filesystem::remove(folder_.path("data/applications/first.desktop"));
    ASSERT_TRUE(qt::runUntil([&] { return changes > 1; }));
    EXPECT_FALSE(entries_.find("first"));
}

TEST_F(DesktopEntriesTest, NoticesAFolderThatAppears) {
    std::filesystem::remove_all(folder_.path("home/.local"));
    int changes = 0;
    const Handle subscription = entries_.subscribe([&] { ++changes; });
    EXPECT_THAT(entries_.all(), IsEmpty());
    folder_.write("home/.local/share/applications/new.desktop",
                  "[Desktop Entry]\nType=Application\nName=New\n");
    ASSERT_TRUE(qt::runUntil([&] { return changes > 0 && entries_.find("new"); }));
}

TEST_F(DesktopEntriesTest, DefaultsComeFromTheUserThenTheDesktopThenTheTypes) {
    install("files", "MimeType=inode/directory;\nCategories=FileManager;");
    install("an-editor", "MimeType=inode/directory;text/plain;\nCategories=TextEditor;");
    install("browser-a", "MimeType=x-scheme-handler/https;\nCategories=WebBrowser;");
    install("browser-b", "MimeType=x-scheme-handler/https;\nCategories=WebBrowser;");
    install("term", "Exec=term\nCategories=TerminalEmulator;");
    EXPECT_EQ(idOf(defaults_.fileManager()), "files") << "not the editor, which also opens folders";
    EXPECT_EQ(idOf(defaults_.forType("x-scheme-handler/https")), "browser-a");

    folder_.write("etc/mimeapps.list", "[Default Applications]\n"
                                       "x-scheme-handler/https=gone.desktop;browser-b.desktop\n");
    EXPECT_EQ(idOf(defaults_.forType("x-scheme-handler/https")), "browser-b");
    std::vector<std::string> pinned;
    for (const auto& entry : defaults_.firstPinned()) {
        pinned.push_back(entry->id);
    }
    EXPECT_THAT(pinned, ElementsAre("browser-b", "term", "an-editor"));

    folder_.write("home/.config/xfce-mimeapps.list",
                  "[Default Applications]\nx-scheme-handler/https=browser-a.desktop\n"
                  "inode/directory=an-editor.desktop\n");
    EXPECT_EQ(idOf(defaults_.forType("x-scheme-handler/https")), "browser-a");
    EXPECT_EQ(idOf(defaults_.fileManager()), "an-editor") << "chosen by the user";
    EXPECT_EQ(idOf(defaults_.forFile(folder_.path())), "an-editor");
    EXPECT_EQ(idOf(defaults_.forFile(folder_.write("source.cpp", "int a;"))), "an-editor")
        << "a source file is a text";
}

} // namespace
} // namespace larkspan::freedesktop
