#pragma once

#include "bar/BarPanel.h"

#include <fmt/format.h>
#include <string>
#include <utility>
#include <vector>

namespace larkspan {

/// Panels that only write down what is asked of them.
class RecordingPanels : public BarPanels {
  public:
    std::unique_ptr<BarPanel> makePanel(const Screen& screen) override {
        calls.push_back(fmt::format("make {}", screen.display));
        return std::make_unique<Panel>(*this);
    }

    /// What was asked since the last time.
    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    std::vector<std::string> calls;
    /// Another program has the keyboard.
    bool isKeyboardHeld = false;

  private:
    class Panel : public BarPanel {
      public:
        explicit Panel(RecordingPanels& owner)
            : owner_(owner) {}
        ~Panel() override { write("close"); }
        void place(const Screen& screen, double height) override {
            display_ = screen.display;
            frame_ = {screen.frame.x, screen.frame.y, screen.frame.width, height};
            owner_.calls.push_back(fmt::format("place {} at {:g},{:g} {:g}x{:g}", display_,
                                               frame_.x, frame_.y, frame_.width, frame_.height));
        }
        void orderIn() override { write("in"); }
        void orderOut() override { write("out"); }
        bool takeKeyboard() override {
            write("keyboard");
            return !owner_.isKeyboardHeld;
        }
        Rect barFrame() const override { return frame_; }

      private:
        void write(const char* what) {
            owner_.calls.push_back(fmt::format("{} {}", what, display_));
        }

        RecordingPanels& owner_;
        DisplayId display_ = 0;
        Rect frame_;
    };
};

} // namespace larkspan
