// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <emscripten/emscripten.h>

#include "form/web/page.h"
#include "game/form1.h"

// The program in a page: the one form, shown by the page until it unloads.
int main() {
    game::Form1 form;
    form::web::Page page(form);
    page.show_changed(form.load());
    // Back to the browser's event loop without unwinding this frame: the form and the page stay
    // here, alive, for as long as the page is open, and the browser delivers their events.
    emscripten_exit_with_live_runtime();
}
