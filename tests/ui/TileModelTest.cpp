#include "ui/bar/TileModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace larkspan::ui {

namespace {

BarTile windowTile(const std::string& id, SpaceId space) {
    return {.section = BarTile::Section::windows,
            .content = AppTile{{.id = id, .name = id}, Slot{1, space}},
            .dot = BarTile::Dot::first};
}

BarTile backgroundTile(const std::string& id) {
    return {.section = BarTile::Section::background,
            .content = AppTile{{.id = id, .name = id}, {}}};
}

void show(TileModel& model, const std::vector<BarTile>& tiles) {
    std::vector<double> tileX;
    for (std::size_t i = 0; i < tiles.size(); ++i)
        tileX.push_back(static_cast<double>(i) * 50);
    model.setTiles(tiles, tileX);
}

class TileModelTest : public testing::Test {
  protected:
    TileModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy inserts{&model, &TileModel::rowsInserted};
    QSignalSpy removes{&model, &TileModel::rowsRemoved};
    QSignalSpy moves{&model, &TileModel::rowsMoved};
    QSignalSpy contents{&model, &TileModel::dataChanged};

    std::string names() const {
        std::string text;
        for (int row = 0; row < model.rowCount(); ++row)
            text += (row > 0 ? " " : "") +
                    model.index(row).data(TileModel::NameRole).toString().toStdString();
        return text;
    }
    void forget() {
        for (QSignalSpy* spy : {&inserts, &removes, &moves, &contents})
            spy->clear();
    }
};

} // namespace

TEST_F(TileModelTest, SameRowsTellNothing) {
    show(model, {windowTile("a", 1), backgroundTile("b")});
    forget();
    show(model, {windowTile("a", 1), backgroundTile("b")});
    EXPECT_EQ(inserts.size() + removes.size() + moves.size() + contents.size(), 0);
}

TEST_F(TileModelTest, AppThatLosesItsWindowsTravelsToTheBackground) {
    show(model, {windowTile("a", 1), windowTile("b", 1), backgroundTile("c")});
    forget();
    show(model, {windowTile("b", 1), backgroundTile("c"), backgroundTile("a")});
    EXPECT_EQ(moves.size(), 1);
    EXPECT_EQ(inserts.size() + removes.size(), 0);
    EXPECT_EQ(names(), "b c a");
}

TEST_F(TileModelTest, AppInTwoGroupsHasTwoTiles) {
    show(model, {windowTile("a", 1), windowTile("a", 2)});
    EXPECT_EQ(model.rowCount(), 2);
    forget();
    show(model, {windowTile("a", 2)});
    EXPECT_EQ(removes.size(), 1);
    EXPECT_EQ(names(), "a");
}

TEST_F(TileModelTest, NewRowArrivesWithItsContents) {
    QString name;
    QObject::connect(&model, &TileModel::rowsInserted, [&](const QModelIndex&, int row) {
        name = model.index(row).data(TileModel::NameRole).toString();
    });
    show(model, {windowTile("a", 1)});
    show(model, {windowTile("b", 1), windowTile("a", 1)});
    EXPECT_EQ(name, "b");
}

TEST_F(TileModelTest, OnlyWhatDiffersIsTold) {
    show(model, {windowTile("a", 1), windowTile("b", 1)});
    forget();
    BarTile front = windowTile("b", 1);
    front.isFront = true;
    show(model, {windowTile("a", 1), front});
    ASSERT_EQ(contents.size(), 1);
    const auto roles = contents.front().at(2).value<QList<int>>();
    EXPECT_EQ(roles, (QList<int>{TileModel::FrontRole, TileModel::StatusRole}));
}

TEST_F(TileModelTest, AppOpenedFromItsPinnedTileComesFromThere) {
    const BarTile pinned{.section = BarTile::Section::pinned,
                         .content = AppTile{{.id = "b", .name = "b"}, {}}};
    show(model, {pinned, windowTile("a", 1)});
    double flight = 0;
    QObject::connect(&model, &TileModel::rowsInserted, [&](const QModelIndex&, int row) {
        flight = model.index(row).data(TileModel::FlightXRole).toDouble();
    });
    forget();
    BarTile opened = windowTile("b", 1);
    opened.fliesIn = true;
    show(model, {pinned, windowTile("a", 1), opened});
    EXPECT_EQ(inserts.size(), 1);
    EXPECT_EQ(flight, -100) << "two places along the bar";
    forget();
    show(model, {pinned, windowTile("a", 1), windowTile("b", 1)});
    EXPECT_EQ(inserts.size() + removes.size() + moves.size() + contents.size(), 0);
}

TEST_F(TileModelTest, BadgeIsShownShortAndToldWhole) {
    BarTile row = windowTile("a", 1);
    show(model, {row});
    forget();
    row.badge = "1234";
    show(model, {row});
    ASSERT_EQ(contents.size(), 1);
    EXPECT_EQ(contents.front().at(2).value<QList<int>>(),
              (QList<int>{TileModel::BadgeRole, TileModel::StatusRole}));
    EXPECT_EQ(model.index(0).data(TileModel::BadgeRole), "99+");
    EXPECT_EQ(model.index(0).data(TileModel::StatusRole), "badge 1234");
}

TEST(BadgeText, HasRoomOnTheTile) {
    struct Case {
        std::string badge;
        const char* text;
    };
    for (const auto& [badge, text] : std::vector<Case>{{"", ""},
                                                       {"5", "5"},
                                                       {"99", "99"},
                                                       {"100", "99+"},
                                                       {std::string(30, '9'), "99+"},
                                                       {"-5", "-5"},
                                                       {" new\n", "new"},
                                                       {"5 new mails", "5 new mails"}})
        EXPECT_EQ(badgeText(badge), text);
}

} // namespace larkspan::ui
