#error "The core library must not use Qt Widgets: windows and dialogs belong in src/ui."
