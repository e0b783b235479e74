VERSION 5.00
Begin VB.Form frmPlant 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Plant a Row"
   ClientHeight    =   5930
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   HelpContextID   =   1012
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
   Begin VB.Label lblField 
      Caption         =   "Field 0:"
      Height          =   385
      Left            =   2085
      Index           =   0
      TabIndex        =   2
      Top             =   2595
      Width           =   1455
   End
   Begin VB.Label lblField 
      Caption         =   "Field 1:"
      Height          =   200
      Left            =   4635
      Index           =   1
      TabIndex        =   21
      Top             =   2655
      Width           =   540
   End
   Begin VB.Label lblField 
      Caption         =   "Field 2:"
      Height          =   595
      Left            =   2775
      Index           =   2
      TabIndex        =   26
      Top             =   2400
      Width           =   2145
   End
   Begin VB.Label lblField 
      Caption         =   "Field 3:"
      Height          =   600
      Left            =   1470
      Index           =   3
      TabIndex        =   15
      Top             =   3675
      Width           =   975
   End
   Begin VB.Label lblField 
      Caption         =   "Field 4:"
      Height          =   270
      Left            =   2025
      Index           =   4
      TabIndex        =   0
      Top             =   2805
      Width           =   1845
   End
   Begin VB.Label lblField 
      Caption         =   "Field 5:"
      Height          =   220
      Left            =   4275
      Index           =   5
      TabIndex        =   25
      Top             =   3270
      Width           =   1695
   End
   Begin VB.TextBox txtField 
      Height          =   680
      Left            =   4500
      Index           =   0
      TabIndex        =   26
      Top             =   120
      Width           =   2025
   End
   Begin VB.TextBox txtField 
      Height          =   255
      Left            =   5490
      Index           =   1
      TabIndex        =   5
      Top             =   4845
      Width           =   1050
   End
   Begin VB.TextBox txtField 
      Height          =   350
      Left            =   5850
      Index           =   2
      TabIndex        =   7
      Top             =   3600
      Width           =   1620
   End
   Begin VB.TextBox txtField 
      Height          =   855
      Left            =   2775
      Index           =   3
      TabIndex        =   28
      Top             =   4080
      Width           =   1260
   End
   Begin VB.TextBox txtField 
      Height          =   790
      Left            =   885
      Index           =   4
      TabIndex        =   18
      Top             =   2880
      Width           =   1425
   End
   Begin VB.TextBox txtField 
      Height          =   245
      Left            =   3375
      Index           =   5
      TabIndex        =   2
      Top             =   1650
      Width           =   1605
   End
End
Attribute VB_Name = "frmPlant"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdVariety_Click()
    frmVariety.Show vbModal
End Sub

