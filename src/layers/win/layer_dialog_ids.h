// Controls of the layer dialogs, shared by their script and their code.
#pragma once

// tsl_layeradd
#define IDC_LAYERADD_FULL 3401
#define IDC_LAYERADD_SIZED 3402
#define IDC_LAYERADD_WIDTH 3403
#define IDC_LAYERADD_HEIGHT 3404

// tsl_layeropt
#define IDC_LAYOPT_NAME 3411
#define IDC_LAYOPT_MODE 3412
#define IDC_LAYOPT_SLIDER 3413
#define IDC_LAYOPT_OPACITY 3414

// tsl_alpopt: the plane list, then the buttons in PlaneRole order.
#define IDC_ALP_LIST 3421
#define IDC_ALP_ADD_MASK 3422
#define IDC_ALP_ADD_TRANSPARENCY 3423
#define IDC_ALP_ADD_LINE 3424
#define IDC_ALP_TO_MASK 3425
#define IDC_ALP_TO_TRANSPARENCY 3426
#define IDC_ALP_TO_LINE 3427
#define IDC_ALP_DELETE 3428

// tsl_layermix and tsl_layermix2: kinds, then transparency choices.
#define IDC_MIX_VISIBLE 3431
#define IDC_MIX_ALL 3432
#define IDC_MIX_FLATTENED 3433
#define IDC_MIX_TO_OPACITY 3434
#define IDC_MIX_ALL_OPTIONS 3435
#define IDC_MIX_COMPLETE_ONLY 3436

// tsl_addshadow
#define IDC_SHADOW_DX 3441
#define IDC_SHADOW_DY 3442
#define IDC_SHADOW_BLUR 3443
#define IDC_SHADOW_COLOR 3444
#define IDC_SHADOW_SWATCH 3445

// tsl_canvresize: side s (left, right, top, bottom) has its check box at
// IDC_SIDE_CHECK + s, amount at IDC_SIDE_AMOUNT + s, Expand and Shrink at
// IDC_SIDE_EXPAND + s and IDC_SIDE_SHRINK + s.
#define IDC_SIDE_CHECK 3450
#define IDC_SIDE_AMOUNT 3454
#define IDC_SIDE_EXPAND 3458
#define IDC_SIDE_SHRINK 3462

// tsl_resize
#define IDC_RESIZE_CURRENT 3471
#define IDC_RESIZE_WIDTH 3472
#define IDC_RESIZE_HEIGHT 3473
#define IDC_RESIZE_ASPECT 3474

// tsl_rotate: the four choices in order, the angle, the preview.
#define IDC_ROTATE_CW 3481
#define IDC_ROTATE_CCW 3482
#define IDC_ROTATE_180 3483
#define IDC_ROTATE_ARBITRARY 3484
#define IDC_ROTATE_ANGLE 3485
#define IDC_ROTATE_PREVIEW 3486
