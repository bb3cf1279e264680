#pragma once
// frmTypewriter: the on-screen transliteration keyboard. Its keys type into whichever box has
// the typewriter's attention (App::typewriterTarget); the window only shows TypewriterState.
#include "translit/typewriter.h"

#include <QWidget>

#include <functional>
#include <vector>

class QAction;
class QPushButton;

namespace nebkaro {

struct App;
enum class TypewriterTarget;

class TypewriterWindow : public QWidget {
    Q_OBJECT
public:
    TypewriterWindow(App& app, QWidget* parent = nullptr);
    const TypewriterState& state() const { return state_; }
    QPushButton* key(int k) const { return keys_.at(static_cast<std::size_t>(k)); }

Q_SIGNALS:
    // A key changed the text of this box.
    void typed(nebkaro::TypewriterTarget target);

private:
    void applyOrder(bool alphabetical);
    void refresh();
    void press(const std::function<bool(App&)>& key);

    App& app_;
    TypewriterState state_;
    std::vector<QPushButton*> keys_;
    QAction* egyptAction_ = nullptr;
    QAction* latinAction_ = nullptr;
};

} // namespace nebkaro
