# Filled in as the itemview code lands.
