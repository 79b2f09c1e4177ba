// What ktTestHeaders compiles, so that the headers of its target are compiled too.
