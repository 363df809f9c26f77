#pragma once

#include "bar/BarPanel.h"
#include "bar/BarPopups.h"

#include <fmt/format.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace larkspan {

/// A label and a menu that only say what would show.
class RecordingPopups : public BarPopups {
  public:
    void showLabel(const std::string& text, const Rect& anchor, const Screen&) override {
        label = text;
        labelAnchor = anchor;
    }
    void hideLabel() override { label.reset(); }
    void openMenu(const Menu& menu, const Rect& anchor, const Screen&, bool lightsFirst) override {
        lines = menu;
        menuAnchor = anchor;
        isFirstLit = lightsFirst;
    }
    void closeMenu() override {
        lines.reset();
        if (onMenuClosed) onMenuClosed();
    }

    std::optional<std::string> label;
    Rect labelAnchor;
    std::optional<Menu> lines;
    Rect menuAnchor;
    bool isFirstLit = false;
};

/// Panels that only write down what is asked of them.
class RecordingPanels : public BarPanels {
  public:
    std::unique_ptr<BarPanel> makePanel(const Screen& screen, BarInteraction&) override {
        calls.push_back(fmt::format("make {}", screen.display));
        return std::make_unique<Panel>(*this);
    }
    RecordingPopups& popups() override { return shown; }

    /// What was asked since the last time.
    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    std::vector<std::string> calls;
    RecordingPopups shown;
    /// Another program has the keyboard.
    bool isKeyboardHeld = false;

  private:
    class Panel : public BarPanel {
      public:
        explicit Panel(RecordingPanels& owner)
            : owner_(owner) {}
        ~Panel() override { write("close"); }
        Size place(const Screen& screen, double height) override {
            display_ = screen.display;
            const Rect& frame = screen.frame;
            owner_.calls.push_back(fmt::format("place {} at {:g},{:g} {:g}x{:g}", display_, frame.x,
                                               frame.y, frame.width, height));
            return {frame.width, height};
        }
        void orderIn() override { write("in"); }
        void orderOut() override { write("out"); }
        bool takeKeyboard() override {
            write("keyboard");
            return !owner_.isKeyboardHeld;
        }

      private:
        void write(const char* what) {
            owner_.calls.push_back(fmt::format("{} {}", what, display_));
        }

        RecordingPanels& owner_;
        DisplayId display_ = 0;
    };
};

} // namespace larkspan
