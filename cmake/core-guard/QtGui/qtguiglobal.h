#error "The core library must not use Qt Gui: it links Qt Core only."
