"""The pieces that make_assets.py draws, models and plays the demo's assets with."""
