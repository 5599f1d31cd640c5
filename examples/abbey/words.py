"""What things are called in the game."""

WORDS = {
    "sky": "The evening sky over the abbey.",
    # things
    "automaton": "A clockwork warden. Keep out of its way!",
    "gem": "A gem! Walk through it, and it is yours.",
    "brazier": "A brazier. Its fire burns those who touch it.",
    "halo": "A brazier. Its fire burns those who touch it.",
    "wisp": "A wisp of light. Nobody knows what it feeds on.",
    "barrel": "A barrel. It sounds empty.",
    "column": "A column of stone. It holds the roof up.",
    "tree": "An old tree, older than the walls around it.",
    "shrub": "A shrub in a pot. Somebody must water it.",
    # walls
    "stone": "A wall of grey stone.",
    "mossy_stone": "An old wall. Moss grows in its joints.",
    "bricks": "A wall of bricks.",
    "planks": "A wall of rough planks.",
    "timber_frame": "A timber frame, filled with plaster.",
    "panelling": "Fine wooden panelling.",
    "metal": "Riveted plates of iron, rusty at the edges.",
    "bookshelf": "Books from floor to ceiling. The dust on them lies thick.",
    "stained_glass": "A window of stained glass. The last light comes through.",
    "door": "A heavy door. It is barred from the other side.",
    "furnace": "The furnace. Somebody keeps it burning.",
    "hedge": "A hedge, too thick to squeeze through.",
    # floors and ceilings
    "cobbles": "Cobbles, worn smooth by many feet.",
    "flagstones": "A floor of flagstones.",
    "tiles": "A chequered floor of tiles.",
    "floorboards": "Floorboards. They creak a little.",
    "grass": "Grass, with daisies in it.",
    "carpet": "A red carpet. It was made for better feet than yours.",
    "tread_plate": "Iron plates with a pattern against slipping.",
    "coffers": "A coffered ceiling with gilded bosses.",
    "vault": "A vault of stone ribs, high above.",
    "rafters": "Rafters, black with age.",
}


def describe(name):
    """A sentence about something; levels of your own may have things that are not in the list."""
    return WORDS.get(name) or "It looks like %s." % name.replace("_", " ")
