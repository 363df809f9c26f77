#include "dock/fileUrl.h"

#include <gtest/gtest.h>

namespace larkspan {
namespace {

TEST(FileUrl, NamesThePathItStandsFor) {
    struct Case {
        const char* url;
        std::optional<std::string> path;
    };
    for (const auto& [url, path] :
         std::vector<Case>{{"file:///Applications/Notes.app/", "/Applications/Notes.app"},
                           {"file:///Old%20Place/%C3%9Cbung.app", "/Old Place/\u00dcbung.app"},
                           {"file://localhost/Applications/Notes.app/", "/Applications/Notes.app"},
                           {"file:///100%/50%2", "/100%/50%2"},
                           {"file:///bad%zz%-1", "/bad%zz%-1"},
                           {"file:///", "/"},
                           {"file://", std::nullopt},
                           {"file://host", std::nullopt},
                           {"https://example.org/x", std::nullopt},
                           {"/Applications/Notes.app", std::nullopt},
                           {"", std::nullopt}})
        EXPECT_EQ(pathOfFileUrl(url), path) << url;
}

TEST(FileUrl, OfAPathLeadsBackToIt) {
    for (const char* path : {"/Applications/Notes.app", "/My 100% App.app", "/\u00dc#?/a+b", "/x"})
        EXPECT_EQ(pathOfFileUrl(fileUrl(path)), path);
    EXPECT_EQ(fileUrl("/My App.app"), "file:///My%20App.app/");
}

} // namespace
} // namespace larkspan
