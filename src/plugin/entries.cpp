// placeholder, replaced by the session entries
