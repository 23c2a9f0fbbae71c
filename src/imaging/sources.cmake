# Filled in as the imaging code lands.
