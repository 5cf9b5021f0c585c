#include "platform/portable/screen/form_session.h"

#include <algorithm>

#include "platform/automation/letter_case.h"

namespace prot {

FormSession::FormSession(Form& form) : form_(form) {
    form_.select_focus = false;
    enter(form_.focus);
    if (!can_have_focus(target_)) move(true);
}

bool FormSession::can_have_focus(std::size_t target) const {
    return target < form_.fields.size() ? form_.fields[target].can_have_focus() : button(target).enabled;
}

void FormSession::press(const Key& key) {
    if (const KeyStroke stroke = key_stroke(key);
        form_.key_down && stroke.code != 0 && (form_.key_preview || stroke.code == key_f1)) {
        form_.key_down(stroke);
        follow_form();
    }
    if (form_.shown) dispatch(key);
    follow_form();
}

void FormSession::dispatch(const Key& key) {
    if (key.alt && press_access_key(key)) return;
    if (!key.plain()) return;
    switch (key.kind) {
        case Key::Kind::enter:
            press_button(target_ == cancel() ? cancel() : ok());
            break;
        case Key::Kind::escape:
            press_button(cancel());
            break;
        case Key::Kind::tab:
            move(!key.shift);
            break;
        default:
            if (on_field())
                press_in_field(key);
            else if (key.types(U' '))
                press_button(target_);
            else if (key.is(Key::Kind::left) || key.is(Key::Kind::up))
                move(false);
            else if (key.is(Key::Kind::right) || key.is(Key::Kind::down))
                move(true);
    }
}

/// The letter behind a field's label leads to the field; behind a label of its own, to the next field.
bool FormSession::press_access_key(const Key& key) {
    const char32_t letter = to_lower(key.character);
    if (key.kind != Key::Kind::character || letter == 0) return false;
    for (std::size_t i = 0; i < form_.fields.size(); ++i) {
        if (!form_.fields[i].visible || access_key(form_.fields[i].label) != letter) continue;
        std::size_t target = i;
        while (target < ok() && form_.fields[target].kind == FieldKind::label) ++target;
        if (target < ok() && can_have_focus(target)) {
            go_to(target);
            return true;
        }
    }
    for (const std::size_t target : {ok(), cancel()}) {
        if (access_key(button(target).text) != letter) continue;
        press_button(target);
        return true;
    }
    return false;
}

void FormSession::press_in_field(const Key& key) {
    switch (field().kind) {
        case FieldKind::text:
            press_in_text(key);
            break;
        case FieldKind::picker:
            press_in_picker(key);
            break;
        default:
            press_in_choice(key);
    }
}

void FormSession::press_in_text(const Key& key) {
    if (key.is(Key::Kind::up) || key.is(Key::Kind::down)) {
        move(key.is(Key::Kind::down));
    } else if (line_.press(key, field().longest)) {
        field().text = line_.text();
        notify(field().changed);
    }
}

void FormSession::press_in_choice(const Key& key) {
    const bool list = field().kind == FieldKind::list;
    if (list && (key.is(Key::Kind::left) || key.is(Key::Kind::right)))
        move(key.is(Key::Kind::right));
    else if (const std::optional<std::size_t> entry = entry_after(key))
        field().choose(entry);
}

void FormSession::press_in_picker(const Key& key) {
    if (line_.press(key, field().longest)) {
        field().text = line_.text();
        field().choose(matches(target_).chosen(field().text, field().selected));
    } else if (const std::optional<std::size_t> entry = match_after(key)) {
        field().choose(entry);
    }
}

/// The entry of a list or of options that a key leads to.
std::optional<std::size_t> FormSession::entry_after(const Key& key) {
    const Field& choice = field();
    if (choice.entries.empty()) return std::nullopt;
    if (key.types()) return entry_typed(key.character);
    type_ahead_.forget();
    const std::size_t last = choice.entries.size() - 1;
    if (!choice.selected) return key.is(Key::Kind::end) ? last : 0;
    const std::size_t now = *choice.selected;
    const std::size_t page = std::max<std::size_t>(page_, 1);
    switch (key.kind) {
        case Key::Kind::up:
        case Key::Kind::left:
            return now > 0 ? now - 1 : 0;
        case Key::Kind::down:
        case Key::Kind::right:
            return std::min(now + 1, last);
        case Key::Kind::page_up:
            return now > page ? now - page : 0;
        case Key::Kind::page_down:
            return std::min(now + page, last);
        case Key::Kind::home:
            return 0;
        case Key::Kind::end:
            return last;
        default:
            return std::nullopt;
    }
}

std::optional<std::size_t> FormSession::entry_typed(char32_t letter) {
    const auto now = std::chrono::steady_clock::now();
    if (!type_ahead_.takes(letter, now)) return std::nullopt;
    return type_ahead_.typed(letter, now, field().entries, field().selected);
}

/// The entry that an arrow or page key leads to among those that match; nothing for other keys.
std::optional<std::size_t> FormSession::match_after(const Key& key) {
    const bool page = key.is(Key::Kind::page_up) || key.is(Key::Kind::page_down);
    const bool back = key.is(Key::Kind::up) || key.is(Key::Kind::page_up);
    if (!page && !back && !key.is(Key::Kind::down)) return std::nullopt;
    const int steps = page ? static_cast<int>(std::max<std::size_t>(page_, 1)) : 1;
    return matches(target_).moved(field().selected, back ? -steps : steps);
}

const PickerMatches& FormSession::matches(std::size_t index) {
    PickerMatches& matches = matches_[index];
    matches.look_through(form_.fields[index].entries);
    matches.filter(form_.fields[index].text);
    return matches;
}

/// Makes up for the check that is due. False: the entry was refused, and its field has the focus again.
bool FormSession::may_leave_to(std::size_t target) {
    const bool checks = target < form_.fields.size() || button(target).causes_validation;
    if (!checks || !unchecked_ || unchecked_ == target) return true;
    const std::size_t checked = *unchecked_;
    const Field& text = form_.fields[checked];
    form_.focus = focus_ = checked;
    if (text.can_have_focus() && text.validate && !text.validate()) {
        const bool elsewhere = form_.select_focus || form_.focus != checked;
        if (!elsewhere && target_ != checked) enter(checked);
        return false;
    }
    unchecked_.reset();
    return form_.shown;
}

void FormSession::go_to(std::size_t target) {
    if (target == target_) return;
    if (may_leave_to(target) && !form_.select_focus && can_have_focus(target)) enter(target);
}

void FormSession::move(bool forward) {
    const std::size_t count = form_.fields.size() + 2;
    std::size_t target = target_;
    do {
        target = (target + (forward ? 1 : count - 1)) % count;
    } while (target != target_ && !can_have_focus(target));
    go_to(target);
}

/// The focus arrives, without any check of where it was.
void FormSession::enter(std::size_t target) {
    target_ = std::min(target, cancel());
    type_ahead_.forget();
    if (!on_field()) return;
    form_.focus = focus_ = target_;
    if (on(FieldKind::text)) unchecked_ = target_;
    if (!on_line()) return;
    line_.set(field().text);
    line_.select_all();
}

void FormSession::press_button(std::size_t target) {
    const Button& pressed = button(target);
    if (!pressed.enabled && target == ok()) return say_what_is_missing();
    if (!pressed.enabled || !may_leave_to(target)) return;
    notify(pressed.click);
    if (on(FieldKind::text)) unchecked_ = target_;
    if (!form_.shown) cancelled_ = target == cancel();
}

/// A picker without a choice gets the focus.
void FormSession::say_what_is_missing() {
    message_ = "Diese Angaben reichen noch nicht aus.";
    for (std::size_t i = 0; i < form_.fields.size(); ++i) {
        const Field& picker = form_.fields[i];
        if (picker.kind != FieldKind::picker || !picker.can_have_focus() || picker.selected) continue;
        message_ = without_access_key(picker.label) + ": " + matches(i).missing_text(picker.text);
        go_to(i);
        return;
    }
}

void FormSession::abandon() {
    notify(form_.cancel.click);
    form_.shown = false;
    cancelled_ = true;
}

/// Takes over what the form's functions did to the focus and to the text that is being edited.
void FormSession::follow_form() {
    if (!form_.shown) return;
    if (form_.select_focus || form_.focus != focus_) {
        const std::size_t asked = form_.focus;
        form_.select_focus = false;
        focus_ = form_.focus;
        if (asked < form_.fields.size() && can_have_focus(asked)) {
            if (unchecked_ != asked) unchecked_.reset();
            enter(asked);
        }
    }
    if (!can_have_focus(target_)) {
        unchecked_.reset();
        move(true);
    }
    if (on_line() && line_.text() != field().text) line_.set(field().text);
}

}  // namespace prot
