"""What the examples have in common."""
