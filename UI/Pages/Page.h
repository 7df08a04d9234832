// SPDX-License-Identifier: MIT
// A page of the wizard: its content, its row of buttons, and its reactions. The constructor finds
// the controls in the form by their object names; they can be used once the form reports that none
// is missing.
//
// Owns:    nothing; the form owns the controls.
// Threads: the interface's own.
// Does not know which page comes next: the controller connects the buttons.
#pragma once
#include "UI/Pages/Form.h"

#include <QPushButton>

class Page {
public:
    // The object names of its buttons; the back button's is null on the first page.
    struct ButtonNames {
        const char* back;
        const char* forward;
        const char* cancel;
    };

    Page(Form& form, const char* identifier, const ButtonNames& names);
    virtual ~Page() = default;
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    [[nodiscard]] QWidget* content() const { return m_content; }
    [[nodiscard]] QWidget* buttonRow() const { return m_buttonRow; }
    [[nodiscard]] QPushButton* backButton() const { return m_back; } // null on the first page
    [[nodiscard]] QPushButton* forwardButton() const { return m_forward; }
    [[nodiscard]] QPushButton* cancelButton() const { return m_cancel; }

    // In the user's language.
    virtual void setTexts() = 0;
    virtual void dress() { } // applies font, palette and style, also after a change
    virtual void enter() { } // just before it is shown: loads what it shows
    virtual void takeFocus() { } // just after; by default its forward button gets the focus
    virtual void leave() { } // before another page is shown: keeps what was chosen

protected:
    void setButtonTexts(const char* forwardKey);

private:
    QWidget* m_content = nullptr;
    QWidget* m_buttonRow = nullptr;
    QPushButton* m_back = nullptr;
    QPushButton* m_forward = nullptr;
    QPushButton* m_cancel = nullptr;
};
