# SPDX-License-Identifier: GPL-3.0-or-later
"""Lets ezdxf read and draw what the DWG converter writes: places where ezdxf gives up a whole drawing for one wrong value."""
import logging

import ezdxf.entities.acis
import ezdxf.entities.layer
import ezdxf.lldxf.encoding
import ezdxf.recover
from ezdxf.addons.drawing.frontend import Frontend
from ezdxf.math import Matrix44

LOG = logging.getLogger("lenient")


def instead(function, otherwise, *errors):
    """The function, or what comes in place of its answer when it stumbles over one of the errors."""
    def call(*arguments, **more):
        try:
            return function(*arguments, **more)
        except errors as error:
            LOG.warning("%s: %s", function.__name__, error)
            return otherwise(*arguments, **more)
    return call


def apply():
    """Texts with broken \\U+ codes stay as they are, viewports' own layer colours of no kind and matrices of surfaces with
    too few numbers count for nothing, and an MTEXT whose codes can't be laid out is drawn without them."""
    decode = instead(ezdxf.lldxf.encoding.decode_dxf_unicode, lambda text: text, ValueError)
    ezdxf.lldxf.encoding.decode_dxf_unicode = ezdxf.recover.decode_dxf_unicode = decode
    ezdxf.entities.layer.load_layer_overrides = instead(ezdxf.entities.layer.load_layer_overrides, lambda layer: {}, ValueError)
    ezdxf.entities.acis.load_matrix = instead(ezdxf.entities.acis.load_matrix, lambda tags, code: Matrix44(),
                                              ezdxf.DXFStructureError)
    Frontend.draw_complex_mtext = instead(Frontend.draw_complex_mtext, Frontend.draw_simple_mtext, ValueError)
