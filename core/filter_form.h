#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/batch_item.h"
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

    /// Asks for the filter. sCommandline: a batch text that holds a selection for this section is accepted
    /// without showing the form; any other is emptied, and the run is interactive. False when the person
    /// cancels, or when an error was shown.
    bool gbGetFilter(Database& oDBU, std::string& sCommandline);

    /// What the file's first line says of an accepted filter.
    const std::string& sFilter() const { return filter_text_; }

protected:
    FilterForm(Environment& environment, std::string_view owner) : environment_(environment), owner_(owner) {}
    virtual ~FilterForm() = default;

    /// Fills the fields from the database.
    virtual void fill() = 0;
    /// Fills what only a person needs, just before the form is shown.
    virtual void fill_for_person() {}

    struct BatchItems {
        std::vector<std::string> read;    ///< of which those from "autostart" on count
        std::vector<std::string> unread;  ///< what the text holds besides
    };
    virtual BatchItems batch_items(const std::string& sCommandline);
    /// The items of gCommandlineSplit, as some sections read them.
    BatchItems split_items(const std::string& sCommandline);
    /// Starts a selection by a batch text from what the fields hold.
    virtual void begin_batch() = 0;
    /// The keys that choose something, in the order in which an item is compared with them; they live as long
    /// as the program.
    virtual std::span<const std::string_view> batch_keys() const = 0;
    /// "autostart" is read, which may happen more than once.
    virtual void start_batch() {}
    /// Takes the value of an item that begins with `key`, one of batch_keys. Says how in the reading's fields
    /// but key, item and value.
    virtual BatchReading read_value(std::string_view key, const std::string& value) = 0;
    /// Behind the last item; whether the selection will do.
    virtual bool end_batch() { return true; }

    /// Makes the filter of the accepted selection: that of the batch text, or the form's fields. Returns
    /// sFilter.
    virtual std::string take_over(bool by_batch) = 0;

    void Form_Load();
    void Form_KeyDown(const KeyStroke& key);
    void Form_Unload() { database_ = nullptr; }
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
    Database* database_ = nullptr;  // until the form unloads

private:
    bool accepted(Database& oDBU, std::string& sCommandline);
    bool mbCommandlineOk(const std::string& sCommandline);
    BatchReading read_item(const BatchItem& item, bool autostart);
    std::string_view batch_key(const BatchItem& item) const;

    bool accepted_ = false;
    bool failed_ = false;  // an error was shown
    std::string filter_text_;
};

/// Title of a box that says why an entry is not possible.
inline constexpr std::string_view not_allowed = "Unzulässige Aktion";

}  // namespace prot
