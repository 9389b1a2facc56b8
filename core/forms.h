#pragma once

// The program's windows: one instance per kind, created on first use. Whether a window is loaded,
// hidden or unloaded carries meaning, so the registry keeps track of it by name.

#include <QString>
#include <QWidget>

class QMdiSubWindow;

namespace hb {

class Form : public QWidget {
    Q_OBJECT
public:
    // A child of the frame sits in the frame's work area; other forms are windows of their own.
    Form(const QString& name, bool frameChild);
    ~Form() override;

    QString formName() const { return objectName(); }
    bool isFrameChild() const { return frameChild_; }
    // "Visible" of the form: a child of the frame shows and hides its sub-window with it.
    void setFormVisible(bool visible);
    bool isFormVisible() const;
    // Moves the form (its sub-window in the frame) to a position in twips.
    void moveTo(int leftTwips, int topTwips);
    QWidget* outerWindow();
    // Sizes the sub-window in the frame to the form.
    void fitWindow();

    // The load event; runs once, right after the registry has taken the form in.
    virtual void formLoad() {}
    // The unload event.
    virtual void formUnload() {}

private:
    bool frameChild_;
    QMdiSubWindow* subWindow_ = nullptr;
};

namespace forms {
Form* find(const QString& name);
void add(Form* form);
// Unload: the unload event runs, the form leaves the registry at once and is deleted when control
// returns to the event loop.
void unload(const QString& name);
void unloadAll();

// Returns the loaded instance of T, loading it on first use.
template <class T>
T& get()
{
    if (auto* form = qobject_cast<T*>(find(T::staticFormName())))
        return *form;
    auto* form = new T;
    add(form);
    form->formLoad();
    return *form;
}

template <class T>
T* loaded()
{
    return qobject_cast<T*>(find(T::staticFormName()));
}

// Runs the handler of T when T is loaded, and nothing otherwise: the route of a menu item that acts on a
// window which may have been closed meanwhile.
template <class T, void (T::*handler)()>
void whenLoaded()
{
    if (T* form = loaded<T>())
        (form->*handler)();
}
} // namespace forms

// The name is lower-cased and trimmed in place, then looked for among the loaded forms.
bool IsFormLoaded(QString& name);
bool IsFormLoaded(const char* name);
void UnloadForms();
void ReloadReport();
void CenterForm(Form& form);

} // namespace hb
