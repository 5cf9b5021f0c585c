#pragma once

#include <string>
#include <string_view>

#include "platform/database.h"
#include "platform/environment.h"
#include "platform/forms/form.h"

namespace prot {

/// The pattern of every filter form: loaded without being shown, filled, then accepted by a batch text or by
/// a person, and unloaded. An error inside any of its procedures is shown and ends the form with false.
class FilterForm {
public:
    FilterForm(const FilterForm&) = delete;
    FilterForm& operator=(const FilterForm&) = delete;

    /// The form as it is described, before it is filled.
    virtual Form described_form() = 0;

protected:
    FilterForm(Environment& environment, std::string_view owner) : environment_(environment), owner_(owner) {}
    virtual ~FilterForm() = default;

    /// Runs the pattern. True: accepted; with an empty sCommandline by a person, from the form's fields. A
    /// batch text that mbCommandlineOk refuses is emptied, and the form shown.
    bool accepted(Database& oDBU, std::string& sCommandline);

    /// Fills the fields from the database.
    virtual void fill(Database& oDBU) = 0;
    /// Fills what only a person needs, just before the form is shown.
    virtual void fill_for_person() {}
    /// Takes the selection from a batch text; never empty.
    virtual bool mbCommandlineOk(const std::string& sCommandline) = 0;

    void Form_Load();
    void Form_KeyDown(const KeyStroke& key);
    void Form_Unload() { oDBU_ = nullptr; }
    void cmdCancel_Click() { form_.shown = false; }

    /// OK and Cancel as every form has them; `ok` is cmdOK_Click.
    void add_buttons(Form& form, std::function<void()> ok);

    /// Ends the form with true.
    void accept() {
        accepted_ = true;
        form_.shown = false;
    }

    /// Says why OK is refused and puts the focus on the field concerned.
    void refuse(std::string_view text, std::string_view title, std::size_t field);

    /// The error exit of a procedure: shows the error being handled and ends the form.
    void fail(std::string_view procedure);

    Environment& environment_;
    const std::string_view owner_;
    Form form_;
    Database* oDBU_ = nullptr;  // until the form unloads

private:
    bool accepted_ = false;
    bool failed_ = false;  // an error was shown
};

/// Title of a box that says why an entry is not possible.
inline constexpr std::string_view not_allowed = "Unzulässige Aktion";

}  // namespace prot
