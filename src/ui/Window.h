#pragma once

#include <filesystem>
#include <vector>

#include "ui/Command.h"
#include "ui/Layout.h"
#include "ui/Menu.h"
#include "ui/TextBox.h"

namespace ui {

enum class WindowState { normal = 0, minimised = 1, maximised = 2 };

/// A window with its controls, which are members of the class derived from this one.
class Window : public Container {
public:
    enum class Kind { main, dialog, splash };

    /// `name` is for isOpen(). A dialog stays above its owner, which must outlive it.
    Window(Kind kind, TextView name, Window* owner = nullptr);
    ~Window() override;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    NativeWidget& client() override;
    NativeWidget& native() const;

    void setCaption(TextView caption);
    Text caption() const;

    /// What is open in the window, shown before the caption; empty for nothing.
    void setDocument(TextView name);

    /// The page of the program's own help that F1 shows here, see ShowHelp.h. 0 for none.
    void setHelpContext(int context);
    int helpContext() const;

    /// Shows the changed mark beside the document, or else the caption, where the platform has one.
    void setChanged(bool changed);

    void show();

    /// Shows it, or brings it to the front, and leaves the focus where it is.
    void showUnfocused();

    /// Brings it to the front of the program's windows where it can be seen; the focus stays.
    void raise();

    /// Handles events until it can be seen, so that a question stands over it; for a second at
    /// most.
    void waitUntilSeen();

    /// Shows it above its owner, and whatever else is the owner's, until it is closed.
    void run();
    void activate();

    /// Closes as if by the person; false when mayClose() prevented it.
    bool close();
    bool isVisible() const;
    bool isActive() const;

    static bool isOpen(TextView name);
    static void closeAllBut(const Window& window);

    /// Lets go of a window at the next moment when no handler runs, so that its own may order it
    /// and ask something afterwards.
    static void discard(std::unique_ptr<Window> window);
    static void dropDiscarded(); ///< at once

    /// Makes a main window a part of another one, with its menus and its toolbar, for as long as it
    /// lives; to be called before it is shown. What it has to say about frame and place on the
    /// screen is forgotten, and its shortcuts count while the focus is in it.
    void dockIn(Container& place);
    bool isDocked() const;

    // In twips, of the inside; frame and title bar are the system's.
    int width() const;
    int height() const;
    void setSize(int width, int height);
    /// The same for a window whose layout is complete, with more room where the texts need it in
    /// the person's font, as far as the screen goes.
    void setSizeForTexts(int width, int height);

    void setMinimumSize(int width, int height);

    // In twips, of the frame on the screen.
    int left() const;
    int top() const;
    void setPosition(int left, int top);
    static int screenWidth();
    static int screenHeight();

    /// How far the menu bar and the toolbar reach down.
    int contentTop() const;

    WindowState state() const;
    void setState(WindowState state);

    void setLayout(Layout layout);
    Menu& menuBar(); ///< of a window that is no dialog

    /// The text box that has the focus, also while a menu is open; null for none.
    TextBox* focusedTextBox() const;

    /// Handles what is still waiting, so that a window being closed is gone.
    static void letEventsRun();

    Event<> Closed;
    Event<> Activated;   ///< the person comes back to it, and nothing else waits for an answer
    Event<> FocusChange; ///< another control, perhaps none, has the focus
    Event<const std::vector<std::filesystem::path>&> FilesDropped; ///< which takesFiles() accepted

    // What the person does to the window; for the window itself to answer.
    virtual void Resize() {}
    virtual bool mayClose() { return true; }
    /// Whether anything is done with files that are about to be dropped.
    virtual bool takesFiles(const std::vector<std::filesystem::path>& /*files*/) const {
        return false;
    }

private:
    struct Native;
    std::unique_ptr<Native> native_;
    std::unique_ptr<Menu> menuBar_;
};

} // namespace ui
