// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <utility>

// The one road from the logic to the screen. The logic writes control properties; each write
// that changes a value marks its control. An event returns the marks it made, and the backend
// shows exactly those controls, reading their values from the form: nothing shown is kept
// twice.
namespace form {

// The controls that show something: the nine cells at their index, then the rest. Form stands
// for the form itself, marked when it unloads.
enum class Control : std::uint8_t {
    Command1 = 9,
    Command2,
    Label1,
    Label2,
    Label3,
    Shape1,
    Image2,
    Timer1,
    Timer2,
    Timer3,
    Form,
};

// Picture1(index), 0 <= index < 9.
constexpr Control cell_control(int index) { return static_cast<Control>(index); }

// The controls that an event changed.
class Changes {
public:
    static Changes all() {
        Changes changes;
        changes.bits_.set();
        return changes;
    }

    void mark(Control control) { bits_.set(static_cast<std::size_t>(control)); }
    bool operator[](Control control) const { return bits_[static_cast<std::size_t>(control)]; }
    bool cell(int index) const { return (*this)[cell_control(index)]; }

private:
    std::bitset<static_cast<std::size_t>(Control::Form) + 1> bits_;
};

// A property that shows: a write of a new value marks its control in the form's changes. Reads
// look like reads of the value itself.
template <typename T>
class Property {
public:
    Property() = default;
    Property(T value) : value_(std::move(value)) {}  // NOLINT: as the plain value would
    Property& operator=(T value) {
        if (value == value_) return *this;
        value_ = std::move(value);
        if (changes_ != nullptr) changes_->mark(control_);
        return *this;
    }
    operator const T&() const { return value_; }  // NOLINT: as the plain value would
    const T& operator*() const { return value_; }
    const T* operator->() const { return &value_; }
    friend bool operator==(const Property& property, const T& value) {
        return property.value_ == value;
    }

    // The form's own controls report to its changes.
    void watch(Changes& changes, Control control) {
        changes_ = &changes;
        control_ = control;
    }

private:
    T value_{};
    Changes* changes_ = nullptr;
    Control control_{};
};

}  // namespace form
