# Filled in as the control code lands.
