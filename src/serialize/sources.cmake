# Filled in as the serialize code lands.
